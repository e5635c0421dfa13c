#include "qt/QtDownloadsPanel.h"

#include "qt/Bind.h"
#include "qt/QtDownloadLines.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QDockWidget>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>
#include <chrono>

namespace {
constexpr std::chrono::milliseconds kLinesRefresh{250};
constexpr int kUsualWidth = 380;
} // namespace

QtDownloadsPanel::QtDownloadsPanel(frmDownloads& form, QMainWindow& window) : m_form(form), m_window(window) {
    m_refresh.setSingleShot(true);
    m_refresh.callOnTimeout(this, [this] { m_form.Show(); });
    m_form.Schedule = [this] {
        if (!m_refresh.isActive()) m_refresh.start(kLinesRefresh);
    };
    m_form.Form.Visible.Attach([this](bool visible) { visible ? Open() : Close(); });
}

QtDownloadsPanel::~QtDownloadsPanel() {
    m_form.Form.Visible.Attach({});
    m_form.Schedule = {};
    Close();
}

void QtDownloadsPanel::Open() {
    if (m_pane) return;
    m_pane = new QDockWidget(ToQt(m_form.Caption), &m_window);
    m_pane->setObjectName(QStringLiteral("downloads"));
    m_pane->setWidget(Contents());
    m_pane->installEventFilter(this);
    m_window.addDockWidget(Qt::RightDockWidgetArea, m_pane);
    m_window.resizeDocks({m_pane}, {kUsualWidth}, Qt::Horizontal);
    m_pane->show();
    m_pane->findChild<QtDownloadLines*>()->setFocus(Qt::OtherFocusReason);
}

QWidget* QtDownloadsPanel::Contents() {
    auto* contents = new QWidget;
    auto* rows = new QVBoxLayout(contents);
    rows->setContentsMargins(6, 6, 6, 6);
    rows->addWidget(new QtDownloadLines(m_form, contents), 1);
    auto* none = new QLabel(contents);
    Bind(m_form.lblNone, *none, QStringLiteral("lblNone"));
    rows->addWidget(none);
    auto* grid = new QGridLayout;
    const auto add = [&](Button& button, const char* name, int row, int column, int width = 1) {
        auto* widget = new QPushButton(contents);
        Bind(button, *widget, QLatin1String(name));
        grid->addWidget(widget, row, column, 1, width);
    };
    add(m_form.cmdOpen, "cmdOpen", 0, 0);
    add(m_form.cmdShowInFolder, "cmdShowInFolder", 0, 1);
    add(m_form.cmdPause, "cmdPause", 1, 0);
    add(m_form.cmdRetry, "cmdRetry", 1, 1);
    add(m_form.cmdCancel, "cmdCancel", 2, 0);
    add(m_form.cmdRemove, "cmdRemove", 2, 1);
    add(m_form.cmdClear, "cmdClear", 3, 0, 2);
    rows->addLayout(grid);
    return contents;
}

void QtDownloadsPanel::Close() {
    if (!m_pane) return;
    const bool hadFocus = m_pane->isAncestorOf(QApplication::focusWidget());
    m_pane->removeEventFilter(this);
    m_pane->hide();
    // It may be in the middle of telling that it was closed. Until it is gone, another may open under its name.
    m_pane->setObjectName({});
    m_pane->deleteLater();
    m_pane.clear();
    if (hadFocus && FocusPage) FocusPage();
}

bool QtDownloadsPanel::eventFilter(QObject* watched, QEvent* event) {
    const auto pressed = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    const bool escape = pressed && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (escape && event->type() == QEvent::ShortcutOverride) event->accept();
    if (event->type() == QEvent::Close || (escape && event->type() == QEvent::KeyPress)) {
        m_form.Form.Visible = false;
        return true;
    }
    return QObject::eventFilter(watched, event);
}
