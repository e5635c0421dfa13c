#include "qt/dialogs/OrganizeFavorites.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/FavoriteTree.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr QSize kUsualOrganizeSize{620, 460};
constexpr QSize kAskSize{360, 340};

} // namespace

OrganizeFavorites::OrganizeFavorites(frmOrganizeFavorites& form, QWidget* parent)
    : QDialog(parent),
      m_form(form),
      m_tree(
          new FavoriteTree(form.Root(), FavoriteTree::Shows::Everything, [&form](const Text& path, const Text& title) {
              return form.treFavorites_AfterLabelEdit(path, title);
          })) {
    setObjectName(QStringLiteral("frmOrganizeFavorites"));
    setWindowTitle(ToQt(form.Caption));
    auto* columns = new QHBoxLayout(this);
    columns->addLayout(Tree(), 1);
    columns->addLayout(Buttons());
    BindTree();
    Bind(form.Form, *this, form.cmdClose);
    resize(kUsualOrganizeSize.expandedTo(minimumSizeHint()));
    m_tree->setFocus();
}

OrganizeFavorites::~OrganizeFavorites() = default;

QVBoxLayout* OrganizeFavorites::Tree() {
    auto* rows = new QVBoxLayout;
    auto* heading = new QLabel;
    heading->setBuddy(m_tree);
    Bind(m_form.lblFavorites, *heading, QStringLiteral("lblFavorites"));
    m_tree->setObjectName(QStringLiteral("treFavorites"));
    m_tree->setAccessibleName(QStringLiteral("Favorites"));
    m_tree->setDragDropMode(QAbstractItemView::InternalMove);
    rows->addWidget(heading);
    rows->addWidget(m_tree, 1);
    rows->addLayout(Address());
    auto* message = new QLabel;
    Bind(m_form.lblMessage, *message, QStringLiteral("lblMessage"));
    // A long message must not widen the dialog, nor move the tree.
    message->setWordWrap(true);
    message->setMinimumHeight(2 * message->fontMetrics().lineSpacing());
    message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    rows->addWidget(message);
    return rows;
}

QLayout* OrganizeFavorites::Address() {
    auto* row = new QHBoxLayout;
    auto* caption = new QLabel;
    m_address = new QLineEdit;
    caption->setBuddy(m_address);
    Bind(m_form.lblAddress, *caption, QStringLiteral("lblAddress"));
    Bind(m_form.txtAddress, *m_address, QStringLiteral("txtAddress"), QStringLiteral("Address"));
    m_address->installEventFilter(this);
    connect(m_address, &QLineEdit::editingFinished, this, [this] { m_form.txtAddress_LostFocus(); });
    row->addWidget(caption);
    row->addWidget(m_address);
    return row;
}

bool OrganizeFavorites::eventFilter(QObject* watched, QEvent* event) {
    const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    if (watched == m_address && key && key->key() == Qt::Key_Escape && m_form.txtAddress_Escape()) return true;
    return QDialog::eventFilter(watched, event);
}

QVBoxLayout* OrganizeFavorites::Buttons() {
    auto* rows = new QVBoxLayout;
    const auto add = [&](Button& button, const char* name) { rows->addWidget(NewButton(button, name)); };
    add(m_form.cmdNewFolder, "cmdNewFolder");
    add(m_form.cmdRename, "cmdRename");
    add(m_form.cmdMove, "cmdMove");
    add(m_form.cmdDelete, "cmdDelete");
    add(m_form.cmdUndo, "cmdUndo");
    rows->addSpacing(style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing) * 2);
    add(m_form.cmdOpenAll, "cmdOpenAll");
    add(m_form.cmdSaveGroup, "cmdSaveGroup");
    rows->addStretch();
    add(m_form.cmdClose, "cmdClose");
    return rows;
}

void OrganizeFavorites::BindTree() {
    m_tree->Chosen.ConnectForLife([this](const Text& path) { m_form.Selected = path; });
    // Not while the tree still handles the drop: the line that was dragged goes.
    m_tree->Dropped.ConnectForLife([this](const Text& path, const Text& folder) {
        QMetaObject::invokeMethod(
            this, [this, path, folder] { m_form.MoveTo(path, folder); }, Qt::QueuedConnection);
    });
    m_connections += m_form.FolderChanged.Connect([this](const Text& folder) { m_tree->Reload(folder); });
    m_connections += m_form.EditName.Connect([this](const Text& path) { m_tree->Edit(path); });
    m_connections += m_form.AskFolder.Connect([this](const Text& path) {
        const Text folder = AskFolder();
        if (!folder.empty()) m_form.MoveTo(path, folder);
    });
    m_connections += m_form.Selected.Attach([this](const Text& path) {
        if (path != m_tree->SelectedPath()) m_tree->Select(path);
    });
    auto* remove = new QShortcut(QKeySequence::Delete, m_tree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, [this] { m_form.cmdDelete.Click(); });
    auto* undo = new QShortcut(QKeySequence::Undo, m_tree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(undo, &QShortcut::activated, this, [this] { m_form.cmdUndo.Click(); });
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &OrganizeFavorites::ShowMenu);
}

void OrganizeFavorites::AddToMenu(QMenu& menu, Button& button, const QKeySequence& keys) {
    if (!button.Enabled()) return;
    // What it does may need the tree as it is when the menu has closed.
    QAction* action = menu.addAction(ToQt(button.Caption()));
    action->setShortcut(keys);
    connect(
        action, &QAction::triggered, this, [&button] { button.Click(); }, Qt::QueuedConnection);
}

void OrganizeFavorites::ShowMenu(const QPoint& place) {
    // A click beside the lines is about none of them.
    if (!m_tree->itemAt(place)) m_tree->Select(m_form.Root());
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    AddToMenu(*menu, m_form.cmdRename, Qt::Key_F2);
    if (m_form.txtAddress.Enabled())
        connect(menu->addAction(QStringLiteral("&Edit Address")), &QAction::triggered, this,
                [this] { m_form.txtAddress.SetFocus(); });
    AddToMenu(*menu, m_form.cmdMove);
    AddToMenu(*menu, m_form.cmdDelete, QKeySequence::Delete);
    if (!menu->isEmpty()) menu->addSeparator();
    AddToMenu(*menu, m_form.cmdUndo, QKeySequence::Undo);
    AddToMenu(*menu, m_form.cmdNewFolder);
    menu->addSeparator();
    AddToMenu(*menu, m_form.cmdOpenAll);
    AddToMenu(*menu, m_form.cmdSaveGroup);
    menu->popup(m_tree->viewport()->mapToGlobal(place));
}

Text OrganizeFavorites::AskFolder() {
    QDialog dialog(this);
    dialog.setObjectName(QStringLiteral("frmMoveFavorite"));
    dialog.setWindowTitle(QStringLiteral("Move to Folder"));
    auto* tree = new FavoriteTree(m_form.Root(), FavoriteTree::Shows::Folders,
                                  [](const Text&, const Text&) { return std::optional<Text>(); });
    tree->setObjectName(QStringLiteral("treFolders"));
    tree->setAccessibleName(QStringLiteral("Folders"));
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* rows = new QVBoxLayout(&dialog);
    rows->addWidget(tree);
    rows->addWidget(buttons);
    dialog.resize(kAskSize);
    return dialog.exec() == QDialog::Accepted ? tree->SelectedPath() : Text();
}

void ShowModal(frmOrganizeFavorites& form, QWidget* parent) {
    const QPointer<OrganizeFavorites> dialog = new OrganizeFavorites(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
