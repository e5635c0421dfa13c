#include "qt/bar/customize/CustomizeDialog.h"

#include "qt/bar/customize/CommandsPage.h"
#include "qt/bar/customize/KeysPage.h"
#include "qt/bar/customize/LookPage.h"
#include "qt/bar/customize/ToolbarsPage.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessa::qt {

CustomizeDialog::CustomizeDialog(CommandBar& bar, QMainWindow& window)
    : QDialog(&window),
      m_custom(bar),
      m_drag(std::make_unique<ToolDrag>(m_custom, window, *this)),
      m_toolbars(new ToolbarsPage(m_custom)),
      m_commands(new CommandsPage(m_custom)),
      m_keys(new KeysPage(m_custom)),
      m_look(new LookPage(m_custom)) {
    setObjectName(QStringLiteral("customize"));
    setWindowTitle(QStringLiteral("Customize"));
    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("pages"));
    tabs->addTab(m_toolbars, QStringLiteral("&Toolbars"));
    tabs->addTab(m_commands, QStringLiteral("&Commands"));
    tabs->addTab(m_keys, QStringLiteral("&Keys"));
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

void CustomizeDialog::Follow() {
    m_toolbars->Refresh();
    m_commands->Refresh();
    m_keys->Refresh();
    m_look->Refresh();
    if (m_drag) m_drag->Follow();
}

Customize::~Customize() { delete m_dialog; }

void Customize::Open() {
    if (!m_dialog) {
        m_dialog = new CustomizeDialog(m_bar, m_window);
        connect(m_dialog, &QDialog::finished, this, &Customize::OnFinished);
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void Customize::OnFinished() {
    if (m_dialog) m_dialog->deleteLater();
    m_dialog.clear();
    Closed();
}

} // namespace tessa::qt
