#include "qt/dialogs/RenameGroup.h"

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

constexpr int kNameCharacters = 40;

QDialogButtonBox* RenameButtons(frmRenameGroup& form) {
    auto* buttons = new QDialogButtonBox;
    auto* rename = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    Bind(form.cmdOK, *rename, QStringLiteral("cmdOK"));
    rename->setDefault(true);
    Bind(form.cmdCancel, *buttons->addButton(QString(), QDialogButtonBox::RejectRole), QStringLiteral("cmdCancel"));
    return buttons;
}

void LayRenameGroup(frmRenameGroup& form, QDialog& dialog) {
    dialog.setObjectName(QStringLiteral("frmRenameGroup"));
    dialog.setWindowTitle(ToQt(form.Caption));
    auto* caption = new QLabel;
    auto* name = new QLineEdit;
    auto* message = new QLabel;
    caption->setBuddy(name);
    Bind(form.lblName, *caption, QStringLiteral("lblName"));
    Bind(form.txtName, *name, QStringLiteral("txtName"), QStringLiteral("Name"));
    Bind(form.lblMessage, *message, QStringLiteral("lblMessage"));
    name->setMinimumWidth(kNameCharacters * name->fontMetrics().averageCharWidth());
    auto* rows = new QVBoxLayout(&dialog);
    for (QWidget* each : {static_cast<QWidget*>(caption), static_cast<QWidget*>(name), static_cast<QWidget*>(message)})
        rows->addWidget(each);
    rows->addWidget(RenameButtons(form));
    name->setFocus();
    name->selectAll();
}

} // namespace

void ShowModal(frmRenameGroup& form, QWidget* parent) {
    const QPointer<QDialog> dialog = new QDialog(parent);
    LayRenameGroup(form, *dialog);
    Bind(form.Form, *dialog, form.cmdCancel);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
