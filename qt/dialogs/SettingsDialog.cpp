#include "qt/dialogs/SettingsDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/Strings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {
constexpr int kLimitWidthInDigits = 12;
}

SettingsDialog::SettingsDialog(frmSettings& form, QWidget* parent) : QDialog(parent), m_form(form) {
    setObjectName(QStringLiteral("frmSettings"));
    setWindowTitle(ToQt(form.Caption));
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("TabStrip1"));
    tabs->addTab(GeneralPage(), WithAccessKey(ToQt(form.TabStrip1.FindAt(1)->Caption()), u'G'));

    auto* rows = new QVBoxLayout(this);
    rows->addWidget(tabs);
    rows->addWidget(Buttons());
    // Larger fonts enlarge the dialog; more room than it needs is of no use.
    rows->setSizeConstraint(QLayout::SetFixedSize);
    Bind(form.Form, *this, form.cmdCancel);
    findChild<QCheckBox*>(QStringLiteral("chkAllowMultipleInstances"))->setFocus();
}

QWidget* SettingsDialog::GeneralPage() {
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    rows->addWidget(NewCheckBox(m_form.chkAllowMultipleInstances, "chkAllowMultipleInstances", u'M'));
    rows->addWidget(NewCheckBox(m_form.chkTabsUp, "chkTabsUp", u'U'));
    rows->addWidget(NewCheckBox(m_form.chkLimitTitleLength, "chkLimitTitleLength", u'L'));
    AddLimit(*rows);
    rows->addWidget(NewCheckBox(m_form.chkCloseTessaGroups, "chkCloseTessaGroups", u'C'));
    rows->addWidget(NewCheckBox(m_form.chkOpenNew, "chkOpenNew", u'N'));
    rows->addWidget(NewCheckBox(m_form.chkAskDefaultBrowser, "chkAskDefaultBrowser", u'K'));
    rows->addWidget(NewCheckBox(m_form.chkRememberAndOpenLastSites, "chkRememberAndOpenLastSites", u'R'));
    rows->addStretch();
    return page;
}

void SettingsDialog::AddLimit(QVBoxLayout& rows) {
    auto* label = new QLabel;
    auto* edit = new QLineEdit;
    label->setBuddy(edit);
    Bind(m_form.Label1, *label, QStringLiteral("Label1"), u'X');
    Bind(m_form.Text1, *edit, QStringLiteral("Text1"), label->accessibleName());
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(u'0') * kLimitWidthInDigits);

    // Under the caption of the box that it belongs to.
    const int indent =
        style()->pixelMetric(QStyle::PM_IndicatorWidth) + style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
    auto* row = new QHBoxLayout;
    row->addSpacing(indent);
    row->addWidget(label);
    row->addWidget(edit);
    row->addStretch();
    rows.addLayout(row);
}

QWidget* SettingsDialog::Buttons() {
    return NewAnswers({m_form.cmdOK, "cmdOK", QDialogButtonBox::AcceptRole},
                      {m_form.cmdCancel, "cmdCancel", QDialogButtonBox::RejectRole});
}

void ShowModal(frmSettings& form, QWidget* parent) {
    const QPointer<SettingsDialog> dialog = new SettingsDialog(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
