#include "qt/bar/customize/QtCustomizeDialog.h"

#include "qt/bar/customize/QtCommandsPage.h"
#include "qt/bar/customize/QtLookPage.h"
#include "qt/bar/customize/QtToolbarsPage.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessa::qt {

QtCustomizeDialog::QtCustomizeDialog(CommandBar& bar, QMainWindow& window)
    : QDialog(&window),
      m_custom(bar),
      m_drag(std::make_unique<QtToolDrag>(m_custom, window, *this)),
      m_toolbars(new QtToolbarsPage(m_custom)),
      m_commands(new QtCommandsPage(m_custom)),
      m_look(new QtLookPage(m_custom)) {
    setObjectName(QStringLiteral("customize"));
    setWindowTitle(QStringLiteral("Customize"));
    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("pages"));
    tabs->addTab(m_toolbars, QStringLiteral("&Toolbars"));
    tabs->addTab(m_commands, QStringLiteral("&Commands"));
    tabs->addTab(m_look, QStringLiteral("&Options"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton* close = buttons->button(QDialogButtonBox::Close);
    close->setText(QStringLiteral("C&lose"));
    close->setObjectName(QStringLiteral("cmdClose"));
    close->setAutoDefault(false);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(tabs);
    rows->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, [this] { m_drag.reset(); });
    m_connections += m_custom.Changed.Connect([this] { Follow(); });
    m_toolbars->setFocus();
}

void QtCustomizeDialog::Follow() {
    m_toolbars->Refresh();
    m_commands->Refresh();
    m_look->Refresh();
    if (m_drag) m_drag->Follow();
}

QtCustomize::~QtCustomize() { delete m_dialog; }

void QtCustomize::Open() {
    if (!m_dialog) {
        m_dialog = new QtCustomizeDialog(m_bar, m_window);
        connect(m_dialog, &QDialog::finished, this, &QtCustomize::OnFinished);
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void QtCustomize::OnFinished() {
    if (m_dialog) m_dialog->deleteLater();
    m_dialog.clear();
    Closed();
}

} // namespace tessa::qt
