#include "qt/dialogs/AddFavorite.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/FavoriteTree.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace tessa::qt {

namespace {

constexpr QSize kUsualAddSize{460, 400};

QLabel* Caption(Label& label, const char* name, QWidget* buddy) {
    auto* line = new QLabel;
    line->setBuddy(buddy);
    Bind(label, *line, QString::fromLatin1(name));
    return line;
}

} // namespace

AddFavorite::AddFavorite(frmAddFavorite& form, QWidget* parent)
    : QDialog(parent),
      m_form(form),
      m_tree(new FavoriteTree(form.Root(), FavoriteTree::Shows::Folders, [&form](const Text& path, const Text& name) {
          return form.treFolders_AfterLabelEdit(path, name);
      })) {
    setObjectName(QStringLiteral("frmAddFavorite"));
    setWindowTitle(ToQt(form.Caption));
    auto* name = new QLineEdit;
    Bind(form.txtName, *name, QStringLiteral("txtName"), QStringLiteral("Name"));
    m_tree->setObjectName(QStringLiteral("treFolders"));
    m_tree->setAccessibleName(QStringLiteral("Create in"));
    auto* message = new QLabel;
    message->setWordWrap(true);
    Bind(form.lblMessage, *message, QStringLiteral("lblMessage"));

    auto* grid = new QGridLayout(this);
    grid->addWidget(Caption(form.lblName, "lblName", name), 0, 0);
    grid->addWidget(name, 0, 1);
    grid->addWidget(Caption(form.lblFolder, "lblFolder", m_tree), 1, 0, Qt::AlignTop);
    grid->addWidget(m_tree, 1, 1);
    grid->setRowStretch(1, 1);
    grid->addWidget(message, 2, 1);
    grid->addWidget(Buttons(), 3, 0, 1, 2);
    BindTree();
    Bind(form.Form, *this, form.cmdCancel);
    resize(kUsualAddSize.expandedTo(minimumSizeHint()));
    name->setFocus();
    name->selectAll();
}

void AddFavorite::BindTree() {
    m_tree->Chosen.ConnectForLife([this](const Text& path) { m_form.Folder = path; });
    m_connections += m_form.NewFolder.Connect([this](const Text& folder, const Text& made) {
        m_tree->Reload(folder);
        m_tree->Edit(made);
    });
}

QWidget* AddFavorite::Buttons() {
    auto* buttons = NewButtonRow({{m_form.cmdNewFolder, "cmdNewFolder", QDialogButtonBox::ResetRole},
                                  {m_form.cmdOK, "cmdOK", QDialogButtonBox::AcceptRole},
                                  {m_form.cmdCancel, "cmdCancel", QDialogButtonBox::RejectRole}});
    buttons->findChild<QPushButton*>(QStringLiteral("cmdOK"))->setDefault(true);
    return buttons;
}

void ShowModal(frmAddFavorite& form, QWidget* parent) {
    const QPointer<AddFavorite> dialog = new AddFavorite(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
