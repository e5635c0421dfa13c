#include "qt/dialogs/SessionsDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/ItemRows.h"
#include "qt/base/Strings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr QSize kUsualSessionsSize{820, 460};

QLabel* SessionHeading(Label& label, const char* name, QWidget* buddy) {
    auto* heading = NewLabel(label, name);
    heading->setBuddy(buddy);
    // Beside a box to tick or not, all headings are equally high.
    heading->setMinimumHeight(QCheckBox().sizeHint().height());
    return heading;
}

void FillPage(QTreeWidgetItem& item, const SessionPageLine& line) {
    ShowCell(item, 0, ToQt(line.Title));
    ShowCell(item, 1, ToQt(line.Address));
    item.setCheckState(0, line.Ticked ? Qt::Checked : Qt::Unchecked);
    QFont font = item.font(0);
    font.setBold(line.Front);
    item.setFont(0, font);
}

} // namespace

SessionsDialog::SessionsDialog(frmSessions& form, QWidget* parent)
    : QDialog(parent), m_form(form), m_sessions(new QListWidget), m_pages(new QTreeWidget) {
    setObjectName(QStringLiteral("frmSessions"));
    setWindowTitle(ToQt(form.Caption));
    auto* halves = new QSplitter;
    halves->setChildrenCollapsible(false);
    halves->addWidget(Sessions());
    halves->addWidget(Pages());
    halves->setStretchFactor(0, 2);
    halves->setStretchFactor(1, 5);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(halves, 1);
    rows->addWidget(NewLabel(form.lblMessage, "lblMessage"));
    rows->addWidget(Buttons());
    BindSessions();
    BindPages();
    Bind(form.Form, *this, form.cmdClose);
    resize(kUsualSessionsSize.expandedTo(minimumSizeHint()));
    m_sessions->setFocus();
}

QWidget* SessionsDialog::Sessions() {
    auto* half = new QWidget;
    auto* rows = new QVBoxLayout(half);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(SessionHeading(m_form.lblSessions, "lblSessions", m_sessions));
    rows->addWidget(m_sessions, 1);
    m_sessions->setObjectName(QStringLiteral("lstSessions"));
    m_sessions->setAccessibleName(QStringLiteral("Sessions"));
    m_sessions->setAlternatingRowColors(true);
    m_sessions->setWordWrap(true);
    m_sessions->setSpacing(2);
    return half;
}

QWidget* SessionsDialog::Pages() {
    auto* half = new QWidget;
    auto* all = NewCheckBox(m_form.chkAll, "chkAll");
    all->setTristate(false);
    auto* head = new QHBoxLayout;
    head->addWidget(SessionHeading(m_form.lblPages, "lblPages", m_pages));
    head->addStretch();
    head->addWidget(all);
    auto* rows = new QVBoxLayout(half);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addLayout(head);
    rows->addWidget(m_pages, 1);
    m_pages->setObjectName(QStringLiteral("lstPages"));
    m_pages->setAccessibleName(QStringLiteral("Pages"));
    m_pages->setHeaderLabels({QStringLiteral("Title"), QStringLiteral("Address")});
    m_pages->setRootIsDecorated(false);
    m_pages->setUniformRowHeights(true);
    m_pages->setAlternatingRowColors(true);
    m_pages->setAllColumnsShowFocus(true);
    m_pages->header()->resizeSection(0, kUsualSessionsSize.width() * 2 / 5);
    return half;
}

QWidget* SessionsDialog::Buttons() {
    auto* buttons = NewButtonRow({{m_form.cmdForget, "cmdForget", QDialogButtonBox::ResetRole},
                                  {m_form.cmdSave, "cmdSave", QDialogButtonBox::ActionRole},
                                  {m_form.cmdOpen, "cmdOpen", QDialogButtonBox::ActionRole},
                                  {m_form.cmdClose, "cmdClose", QDialogButtonBox::RejectRole}});
    buttons->findChild<QPushButton*>(QStringLiteral("cmdOpen"))->setDefault(true);
    return buttons;
}

void SessionsDialog::BindSessions() {
    BindRows(m_form.lstSessions, *m_sessions, m_connections, [](QListWidgetItem& item, const SessionLine& line) {
        item.setText(ToQt(line.When) + u'\n' + ToQt(line.Pages));
    });
}

void SessionsDialog::BindPages() {
    BindRows(m_form.lstPages, *m_pages, m_connections, FillPage);
    connect(m_pages, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        m_form.lstPages_ItemCheck(static_cast<std::size_t>(m_pages->indexOfTopLevelItem(item)),
                                  item->checkState(0) == Qt::Checked);
    });
    connect(m_pages, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        m_form.lstPages_DblClick(static_cast<std::size_t>(m_pages->indexOfTopLevelItem(item)));
    });
}

void ShowModal(frmSessions& form, QWidget* parent) {
    const QPointer<SessionsDialog> dialog = new SessionsDialog(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
