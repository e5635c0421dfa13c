#include "qt/dialogs/RenameTab.h"

#include "qt/base/Bind.h"
#include "qt/base/Strings.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr int kTabNameCharacters = 40;

QDialogButtonBox* RenameTabButtons(frmRenameTab& form) {
    auto* buttons = new QDialogButtonBox;
    auto* rename = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    Bind(form.cmdOK, *rename, QStringLiteral("cmdOK"));
    rename->setDefault(true);
    Bind(form.cmdCancel, *buttons->addButton(QString(), QDialogButtonBox::RejectRole), QStringLiteral("cmdCancel"));
    return buttons;
}

void LayRenameTab(frmRenameTab& form, QDialog& dialog) {
    dialog.setObjectName(QStringLiteral("frmRenameTab"));
    dialog.setWindowTitle(ToQt(form.Caption));
    auto* caption = new QLabel;
    auto* name = new QLineEdit;
    caption->setBuddy(name);
    Bind(form.lblName, *caption, QStringLiteral("lblName"));
    Bind(form.txtName, *name, QStringLiteral("txtName"), QStringLiteral("Name"));
    name->setMaxLength(static_cast<int>(frmRenameTab::kLongest));
    name->setClearButtonEnabled(true);
    name->setMinimumWidth(kTabNameCharacters * name->fontMetrics().averageCharWidth());
    auto* rows = new QVBoxLayout(&dialog);
    rows->addWidget(caption);
    rows->addWidget(name);
    rows->addWidget(RenameTabButtons(form));
    name->setFocus();
    name->selectAll();
}

} // namespace

void ShowModal(frmRenameTab& form, QWidget* parent) {
    const QPointer<QDialog> dialog = new QDialog(parent);
    LayRenameTab(form, *dialog);
    Bind(form.Form, *dialog, form.cmdCancel);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
