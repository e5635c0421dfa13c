#include "qt/dialogs/InternetOptionsDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/ChoiceBinding.h"
#include "qt/base/FormRows.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/BlockingPages.h"
#include "qt/dialogs/ListBoxView.h"
#include "qt/dialogs/PageList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr int kBoxWidthInDigits = 48;
constexpr int kPortWidthInDigits = 8;

QString ObjectName(const char* name) { return QString::fromLatin1(name); }

// A text box under the label that names it.
QLineEdit* AddBox(QVBoxLayout& rows, Label& label, TextBox& box, const char* name, char16_t accessKey) {
    auto* caption = new QLabel;
    auto* edit = new QLineEdit;
    caption->setBuddy(edit);
    Bind(label, *caption, QStringLiteral("lbl") + ObjectName(name).mid(3), accessKey);
    Bind(box, *edit, ObjectName(name), caption->accessibleName());
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(u'0') * kBoxWidthInDigits);
    rows.addWidget(caption);
    rows.addWidget(edit);
    return edit;
}

void AddChoice(QVBoxLayout& rows, Choice& choice, const char* name, char16_t accessKey) {
    auto* caption = new QLabel(WithAccessKey(ToQt(choice.Caption), accessKey));
    auto* box = new QComboBox;
    caption->setBuddy(box);
    Bind(choice, *box, ObjectName(name));
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(box);
    row->addStretch();
    rows.addLayout(row);
}

void AddNote(QVBoxLayout& rows, Label& label, const char* name) {
    auto* widget = NewLabel(label, name);
    widget->setWordWrap(true);
    rows.addWidget(widget);
}

void AddButtons(QVBoxLayout& rows, std::initializer_list<QPushButton*> buttons) {
    auto* row = new QHBoxLayout;
    for (auto* button : buttons) row->addWidget(button);
    row->addStretch();
    rows.addLayout(row);
}

void AddSleep(QVBoxLayout& rows, frmInternetOptions& form) {
    auto* check = new QCheckBox;
    auto* minutes = new QLineEdit;
    auto* unit = new QLabel;
    auto* bad = new QLabel;
    Bind(form.chkSleep, *check, QStringLiteral("chkSleep"), u'T');
    Bind(form.txtSleepMinutes, *minutes, QStringLiteral("txtSleepMinutes"), QStringLiteral("Minutes"));
    Bind(form.lblSleepMinutes, *unit, QStringLiteral("lblSleepMinutes"));
    Bind(form.lblSleepBad, *bad, QStringLiteral("lblSleepBad"));
    minutes->setFixedWidth(minutes->fontMetrics().horizontalAdvance(u'0') * kPortWidthInDigits);
    auto* row = new QHBoxLayout;
    row->addWidget(check);
    row->addWidget(minutes);
    row->addWidget(unit);
    row->addStretch();
    rows.addLayout(row);
    rows.addWidget(bad);
    // Who hears the box alone would not know what it is for.
    check->setAccessibleName(QStringLiteral("Let tabs sleep that were not looked at for so many minutes"));
}

} // namespace

InternetOptionsDialog::InternetOptionsDialog(frmInternetOptions& form, QWidget* parent)
    : QDialog(parent), m_form(form) {
    setObjectName(QStringLiteral("frmInternetOptions"));
    setWindowTitle(ToQt(form.Caption));
    m_pages = new PageList(this);
    m_pages->Add(*BlockingPages::NewLists(form.Blocking), QStringLiteral("&Blocking"));
    m_pages->Add(*BlockingPages::NewOwnRules(form.Blocking), QStringLiteral("&My Rules"));
    m_pages->Add(*GeneralPage(), QStringLiteral("&General"));
    m_pages->Add(*ProgramsPage(), QStringLiteral("&Programs"));
    m_pages->Add(*PrivacyPage(), QStringLiteral("Pri&vacy"));
    m_pages->Add(*SitesPage(), QStringLiteral("Sit&es"));
    m_pages->Add(*HistoryPage(), QStringLiteral("Histor&y"));
    m_pages->Add(*ClearPage(), QStringLiteral("C&lear Data"));
    m_pages->Add(*ConnectionPage(), QStringLiteral("&Connection"));
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(m_pages);
    rows->addWidget(Buttons());
    // Larger fonts enlarge the dialog; more room than it needs is of no use.
    rows->setSizeConstraint(QLayout::SetFixedSize);
    Bind(form.Form, *this, form.cmdCancel);
    findChild<QCheckBox*>(QStringLiteral("chkOn"))->setFocus();
}

QWidget* InternetOptionsDialog::GeneralPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    AddBox(*rows, m_form.lblHomePage, m_form.txtHomePage, "txtHomePage", u'H');
    AddButtons(*rows, {NewButton(m_form.cmdUseCurrent, "cmdUseCurrent", u'U'),
                       NewButton(m_form.cmdUseDefault, "cmdUseDefault", u'D')});
    AddChoice(*rows, m_form.cboStart, "cboStart", u'A');
    AddBox(*rows, m_form.lblSearch, m_form.txtSearch, "txtSearch", u'S');
    AddBox(*rows, m_form.lblShop, m_form.txtShop, "txtShop", u'O');
    AddBox(*rows, m_form.lblFind, m_form.txtFind, "txtFind", u'F');
    for (const char* name : {"txtSearch", "txtShop", "txtFind"})
        page->findChild<QLineEdit*>(ObjectName(name))->setPlaceholderText(QStringLiteral("TessaView's own choice"));
    LeadTo(*page, m_form.txtSleepMinutes);
    AddSleep(*rows, m_form);
    AddChoice(*rows, m_form.cboDrawing, "cboDrawing", u'W');
    rows->addStretch();
    return page;
}

QWidget* InternetOptionsDialog::ProgramsPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    AddBox(*rows, m_form.lblMail, m_form.txtMail, "txtMail", u'I');
    AddBox(*rows, m_form.lblNews, m_form.txtNews, "txtNews", u'N');
    AddBox(*rows, m_form.lblArchive, m_form.txtArchive, "txtArchive", u'A')
        ->setPlaceholderText(QStringLiteral("TessaView's own choice"));
    AddBox(*rows, m_form.lblDownloads, m_form.txtDownloads, "txtDownloads", u'D');
    AddButtons(*rows, {NewButton(m_form.cmdBrowse, "cmdBrowse", u'W')});
    rows->addStretch();
    return page;
}

QWidget* InternetOptionsDialog::PrivacyPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    rows->addWidget(NewCheckBox(m_form.chkJavaScript, "chkJavaScript", u'J'));
    AddChoice(*rows, m_form.cboCookies, "cboCookies", u'K');
    rows->addWidget(NewCheckBox(m_form.chkDoNotTrack, "chkDoNotTrack", u'T'));
    rows->addWidget(NewCheckBox(m_form.chkGlobalPrivacyControl, "chkGlobalPrivacyControl", u'S'));
    rows->addStretch();
    return page;
}

QWidget* InternetOptionsDialog::SitesPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    auto* caption = new QLabel;
    auto* list = new ListBoxView(m_form.lstSites, QStringLiteral("lstSites"), ToQt(m_form.lblSites.Caption()));
    list->setDragDropMode(QListView::NoDragDrop);
    caption->setBuddy(list);
    Bind(m_form.lblSites, *caption, QStringLiteral("lblSites"), u'W');
    // Delete does what it does in every list.
    auto* revoke = NewButton(m_form.cmdRevoke, "cmdRevoke", u'R');
    auto* key = new QShortcut(QKeySequence::Delete, list, nullptr, nullptr, Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, revoke, &QPushButton::click);
    rows->addWidget(caption);
    rows->addWidget(list);
    AddButtons(*rows, {revoke, NewButton(m_form.cmdRevokeAll, "cmdRevokeAll", u'A')});
    AddNote(*rows, m_form.lblSitesHint, "lblSitesHint");
    return page;
}

QWidget* InternetOptionsDialog::HistoryPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    rows->addWidget(NewCheckBox(m_form.chkHistoryTexts, "chkHistoryTexts", u'T'));
    for (auto* box : {&m_form.txtHistoryDays, &m_form.txtHistoryMegabytes}) LeadTo(*page, *box);
    for (auto* edit :
         {AddBox(*rows, m_form.lblHistoryDays, m_form.txtHistoryDays, "txtHistoryDays", u'F'),
          AddBox(*rows, m_form.lblHistoryMegabytes, m_form.txtHistoryMegabytes, "txtHistoryMegabytes", u'K')}) {
        edit->setMinimumWidth(0);
        edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(u'0') * kPortWidthInDigits);
    }
    AddBox(*rows, m_form.lblHistoryLeftOut, m_form.txtHistoryLeftOut, "txtHistoryLeftOut", u'S')
        ->setPlaceholderText(QStringLiteral("example.org, bank.example"));
    rows->addWidget(NewCheckBox(m_form.chkHistoryNothing, "chkHistoryNothing", u'R'));
    rows->addWidget(NewLabel(m_form.lblHistoryBad, "lblHistoryBad"));
    rows->addStretch();
    return page;
}

QWidget* InternetOptionsDialog::ClearPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    rows->addWidget(NewCheckBox(m_form.chkClearCookies, "chkClearCookies", u'K'));
    rows->addWidget(NewCheckBox(m_form.chkClearVisited, "chkClearVisited", u'I'));
    rows->addWidget(NewCheckBox(m_form.chkClearHistory, "chkClearHistory", u'H'));
    AddChoice(*rows, m_form.cboSince, "cboSince", u'O');
    rows->addWidget(NewCheckBox(m_form.chkClearSiteData, "chkClearSiteData", u'W'));
    rows->addWidget(NewCheckBox(m_form.chkClearCache, "chkClearCache", u'S'));
    rows->addWidget(NewCheckBox(m_form.chkClearTyped, "chkClearTyped", u'T'));
    AddNote(*rows, m_form.lblClearNote, "lblClearNote");
    AddButtons(*rows, {NewButton(m_form.cmdClear, "cmdClear", u'N')});
    AddNote(*rows, m_form.lblCleared, "lblCleared");
    rows->addStretch();
    return page;
}

QWidget* InternetOptionsDialog::ConnectionPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    AddChoice(*rows, m_form.cboProxy, "cboProxy", u'X');
    for (auto* box : {&m_form.txtProxyHost, &m_form.txtProxyPort}) LeadTo(*page, *box);
    AddBox(*rows, m_form.lblProxyHost, m_form.txtProxyHost, "txtProxyHost", u'H');
    auto* port = AddBox(*rows, m_form.lblProxyPort, m_form.txtProxyPort, "txtProxyPort", u'R');
    port->setMinimumWidth(0);
    port->setFixedWidth(port->fontMetrics().horizontalAdvance(u'0') * kPortWidthInDigits);
    rows->addWidget(NewLabel(m_form.lblProxyBad, "lblProxyBad"));
    rows->addStretch();
    return page;
}

// Before the box is bound: only on a page that is shown it takes the keyboard.
void InternetOptionsDialog::LeadTo(QWidget& page, TextBox& box) {
    m_connections += box.SetFocus.Connect([pages = m_pages, &page] { pages->Show(page); });
}

QWidget* InternetOptionsDialog::Buttons() {
    return NewAnswers({m_form.cmdOK, "cmdOK", QDialogButtonBox::AcceptRole},
                      {m_form.cmdCancel, "cmdCancel", QDialogButtonBox::RejectRole});
}

void ShowModal(frmInternetOptions& form, QWidget* parent) {
    const QPointer<InternetOptionsDialog> dialog = new InternetOptionsDialog(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
