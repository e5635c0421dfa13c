#include "qt/QtOrganizeFavorites.h"

#include "qt/Bind.h"
#include "qt/QtFavoriteTree.h"
#include "qt/QtText.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr QSize kUsualOrganizeSize{620, 460};
constexpr QSize kAskSize{360, 340};

} // namespace

QtOrganizeFavorites::QtOrganizeFavorites(frmOrganizeFavorites& form, QWidget* parent)
    : QDialog(parent), m_form(form), m_tree(new QtFavoriteTree(form.Root(), QtFavoriteTree::Shows::Everything)) {
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

QtOrganizeFavorites::~QtOrganizeFavorites() {
    m_form.FolderChanged = {};
    m_form.EditName = {};
    m_form.AskFolder = {};
    m_form.Selected.Attach({});
}

QVBoxLayout* QtOrganizeFavorites::Tree() {
    auto* rows = new QVBoxLayout;
    auto* heading = new QLabel;
    heading->setBuddy(m_tree);
    Bind(m_form.lblFavorites, *heading, QStringLiteral("lblFavorites"));
    m_tree->setObjectName(QStringLiteral("treFavorites"));
    m_tree->setAccessibleName(QStringLiteral("Favorites"));
    m_tree->setDragDropMode(QAbstractItemView::InternalMove);
    rows->addWidget(heading);
    rows->addWidget(m_tree, 1);
    auto* address = new QLabel;
    auto* message = new QLabel;
    Bind(m_form.lblAddress, *address, QStringLiteral("lblAddress"));
    Bind(m_form.lblMessage, *message, QStringLiteral("lblMessage"));
    for (QLabel* each : {address, message}) {
        // A long address must not widen the dialog.
        each->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        each->setTextInteractionFlags(Qt::TextSelectableByMouse);
        rows->addWidget(each);
    }
    return rows;
}

QVBoxLayout* QtOrganizeFavorites::Buttons() {
    auto* rows = new QVBoxLayout;
    const auto add = [&](Button& button, const char* name) {
        auto* widget = new QPushButton;
        Bind(button, *widget, QString::fromLatin1(name));
        widget->setAutoDefault(false);
        rows->addWidget(widget);
    };
    add(m_form.cmdNewFolder, "cmdNewFolder");
    add(m_form.cmdRename, "cmdRename");
    add(m_form.cmdMove, "cmdMove");
    add(m_form.cmdDelete, "cmdDelete");
    rows->addSpacing(style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing) * 2);
    add(m_form.cmdOpenAll, "cmdOpenAll");
    add(m_form.cmdSaveGroup, "cmdSaveGroup");
    rows->addStretch();
    add(m_form.cmdClose, "cmdClose");
    return rows;
}

void QtOrganizeFavorites::BindTree() {
    m_tree->Chosen = [this](const Text& path) { m_form.Selected = path; };
    m_tree->Renamed = [this](const Text& path, const Text& title) {
        return m_form.treFavorites_AfterLabelEdit(path, title);
    };
    // Not while the tree still handles the drop: the line that was dragged goes.
    m_tree->Dropped = [this](const Text& path, const Text& folder) {
        QMetaObject::invokeMethod(
            this, [this, path, folder] { m_form.MoveTo(path, folder); }, Qt::QueuedConnection);
    };
    m_form.FolderChanged = [this](const Text& folder) { m_tree->Reload(folder); };
    m_form.EditName = [this](const Text& path) { m_tree->Edit(path); };
    m_form.AskFolder = [this] { return AskFolder(); };
    m_form.Selected.Attach([this](const Text& path) {
        if (path != m_tree->SelectedPath()) m_tree->Select(path);
    });
    auto* remove = new QShortcut(QKeySequence::Delete, m_tree, nullptr, nullptr, Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, [this] { m_form.cmdDelete.Click(); });
}

Text QtOrganizeFavorites::AskFolder() {
    QDialog dialog(this);
    dialog.setObjectName(QStringLiteral("frmMoveFavorite"));
    dialog.setWindowTitle(QStringLiteral("Move to Folder"));
    auto* tree = new QtFavoriteTree(m_form.Root(), QtFavoriteTree::Shows::Folders);
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
    const QPointer<QtOrganizeFavorites> dialog = new QtOrganizeFavorites(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}
