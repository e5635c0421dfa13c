#include "qt/page/DevTools.h"

#include "qt/base/paint/PanelButtons.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QWebEnginePage>
#include <QWebEngineView>

namespace tessa::qt {

void DevTools::Toggle(QWebEnginePage* page) {
    if (!page) return;
    const bool shown = page == m_inspected;
    Close();
    if (!shown) Open(*page);
}

void DevTools::Show(QWebEnginePage& page) {
    if (m_inspected == &page) return;
    Close();
    Open(page);
}

void DevTools::Open(QWebEnginePage& page) {
    m_inspected = &page;
    m_pane = new QDockWidget(QStringLiteral("Developer Tools"), &m_window);
    m_pane->setObjectName(QStringLiteral("devTools"));
    m_pane->setAttribute(Qt::WA_DeleteOnClose);
    new PanelButtons(*m_pane);
    auto* view = new QWebEngineView(m_pane);
    view->setPage(new QWebEnginePage(page.profile(), view));
    view->setMinimumSize(240, 160);
    m_pane->setWidget(view);
    m_window.addDockWidget(Qt::BottomDockWidgetArea, m_pane);
    m_window.resizeDocks({m_pane}, {m_window.height() * 2 / 5}, Qt::Vertical);
    view->page()->setInspectedPage(&page);
    // Tools without their page show nothing any more.
    connect(&page, &QObject::destroyed, m_pane, &QWidget::close);
    connect(m_pane, &QObject::destroyed, this, [this] { m_inspected.clear(); });
    m_pane->show();
}

QWebEnginePage* DevTools::Inspected() const { return m_inspected; }

void DevTools::Close() {
    m_inspected.clear();
    delete m_pane;
}

} // namespace tessa::qt
