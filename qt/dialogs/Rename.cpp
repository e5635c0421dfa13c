#include "qt/dialogs/Rename.h"

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

/// What the questions for a name have alike.
template<typename RenameForm>
class RenameDialog final : public QDialog {
public:
    RenameDialog(RenameForm& form, const QString& objectName, QWidget* parent)
        : QDialog(parent), name(new QLineEdit), m_form(form), m_rows(new QVBoxLayout(this)) {
        setObjectName(objectName);
        setWindowTitle(ToQt(form.Caption));
        auto* caption = new QLabel;
        caption->setBuddy(name);
        Bind(form.lblName, *caption, QStringLiteral("lblName"));
        Bind(form.txtName, *name, QStringLiteral("txtName"), QStringLiteral("Name"));
        name->setMinimumWidth(kNameCharacters * name->fontMetrics().averageCharWidth());
        Add(caption);
        Add(name);
    }

    void Add(QWidget* row) { m_rows->addWidget(row); }
    void AddButtons() {
        auto* buttons = new QDialogButtonBox;
        auto* rename = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
        Bind(m_form.cmdOK, *rename, QStringLiteral("cmdOK"));
        rename->setDefault(true);
        auto* cancel = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
        Bind(m_form.cmdCancel, *cancel, QStringLiteral("cmdCancel"));
        Add(buttons);
        name->setFocus();
        name->selectAll();
    }

    QLineEdit* const name;

private:
    RenameForm& m_form;
    QVBoxLayout* m_rows;
};

template<typename RenameForm>
void AskForName(RenameForm& form, const QPointer<RenameDialog<RenameForm>>& dialog) {
    dialog->AddButtons();
    Bind(form.Form, *dialog, form.cmdCancel);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace

void ShowModal(frmRenameGroup& form, QWidget* parent) {
    const QPointer<RenameDialog<frmRenameGroup>> dialog =
        new RenameDialog(form, QStringLiteral("frmRenameGroup"), parent);
    auto* message = new QLabel;
    Bind(form.lblMessage, *message, QStringLiteral("lblMessage"));
    dialog->Add(message);
    AskForName(form, dialog);
}

void ShowModal(frmRenameTab& form, QWidget* parent) {
    const QPointer<RenameDialog<frmRenameTab>> dialog = new RenameDialog(form, QStringLiteral("frmRenameTab"), parent);
    dialog->name->setMaxLength(static_cast<int>(frmRenameTab::kLongest));
    dialog->name->setClearButtonEnabled(true);
    AskForName(form, dialog);
}

} // namespace tessa::qt
