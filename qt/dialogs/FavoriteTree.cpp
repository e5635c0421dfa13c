#include "qt/dialogs/FavoriteTree.h"

#include "base/Captions.h"
#include "qt/base/Icons.h"
#include "qt/base/SelectedIcon.h"
#include "qt/base/Strings.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QSignalBlocker>

namespace tessa::qt {

namespace {

constexpr int kPathRole = Qt::UserRole, kIsFolder = Qt::UserRole + 1, kLoaded = Qt::UserRole + 2,
              kShown = Qt::UserRole + 3;

Text PathOf(const QTreeWidgetItem& item) { return FromQt(item.data(0, kPathRole).toString()); }
bool IsFolder(const QTreeWidgetItem& item) { return item.data(0, kIsFolder).toBool(); }

} // namespace

FavoriteTree::FavoriteTree(Text root, Shows shows, Renamer rename)
    : m_root(std::move(root)),
      m_shows(shows),
      m_rename(std::move(rename)),
      m_folderIcon(WithSelectedLook(Icons::Of({u"folder"}))),
      m_pageIcon(WithSelectedLook(Icons::Of({u"text-html"}))) {
    header()->hide();
    setUniformRowHeights(true);
    setEditTriggers(EditKeyPressed);
    auto* top = new QTreeWidgetItem(this);
    Fill(*top, u"Favorites", m_root, true);
    Load(*top);
    top->setExpanded(true);
    setCurrentItem(top);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { Load(*item); });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) { OnChanged(*item); });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item) Chosen(PathOf(*item));
    });
}

void FavoriteTree::Fill(QTreeWidgetItem& item, const Text& title, const Text& path, bool isFolder) {
    const QString shown = ToQt(OneLine(title));
    item.setText(0, shown);
    item.setData(0, kShown, shown);
    item.setData(0, kPathRole, ToQt(path));
    item.setData(0, kIsFolder, isFolder);
    item.setIcon(0, isFolder ? m_folderIcon : m_pageIcon);
    if (isFolder) item.setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
}

void FavoriteTree::Load(QTreeWidgetItem& item) {
    if (!IsFolder(item) || item.data(0, kLoaded).toBool()) return;
    const QSignalBlocker quiet(this);
    item.setData(0, kLoaded, true);
    const Text path = PathOf(item);
    const auto items = m_shows == Shows::Folders ? Favorites::Folders(path) : Favorites::Items(path);
    for (const Favorites::Item& each : items) AddItem(item, each);
    item.setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void FavoriteTree::AddItem(QTreeWidgetItem& parent, const Favorites::Item& item) {
    auto* line = new QTreeWidgetItem(&parent);
    line->setFlags(line->flags() | Qt::ItemIsEditable);
    Fill(*line, item.Title, item.Path, item.IsFolder);
}

QTreeWidgetItem* FavoriteTree::Find(const Text& path) {
    QTreeWidgetItem* at = &Root();
    while (at && PathOf(*at) != path) {
        Load(*at);
        QTreeWidgetItem* next = nullptr;
        for (int i = 0; i < at->childCount() && !next; ++i) {
            const Text below = PathOf(*at->child(i));
            if (path == below || path.starts_with(below + u"/")) next = at->child(i);
        }
        at = next;
    }
    return at;
}

void FavoriteTree::Select(const Text& path) {
    QTreeWidgetItem* found = Find(path);
    if (!found) found = &Root();
    for (QTreeWidgetItem* above = found->parent(); above; above = above->parent()) above->setExpanded(true);
    setCurrentItem(found);
    scrollToItem(found);
}

void FavoriteTree::Reload(const Text& folder) {
    QTreeWidgetItem* item = Find(folder);
    if (!item) return;
    const QStringList expanded = ExpandedBelow(*item);
    {
        const QSignalBlocker quiet(this);
        qDeleteAll(item->takeChildren());
        item->setData(0, kLoaded, false);
    }
    Load(*item);
    for (const QString& path : expanded) {
        QTreeWidgetItem* found = Find(FromQt(path));
        if (found) found->setExpanded(true);
    }
}

QStringList FavoriteTree::ExpandedBelow(QTreeWidgetItem& item) const {
    QStringList paths;
    for (int i = 0; i < item.childCount(); ++i) {
        QTreeWidgetItem& child = *item.child(i);
        if (child.isExpanded()) paths << ToQt(PathOf(child)) << ExpandedBelow(child);
    }
    return paths;
}

void FavoriteTree::Edit(const Text& path) {
    Select(path);
    setFocus();
    editItem(currentItem());
}

Text FavoriteTree::SelectedPath() const { return currentItem() ? PathOf(*currentItem()) : m_root; }

void FavoriteTree::OnChanged(QTreeWidgetItem& item) {
    const QString typed = item.text(0);
    if (typed == item.data(0, kShown).toString()) return;
    {
        const QSignalBlocker quiet(this);
        item.setText(0, item.data(0, kShown).toString());
    }
    // The line must not go while its editor is being closed.
    QMetaObject::invokeMethod(
        this, [this, path = PathOf(item), name = FromQt(typed)] { Rename(path, name); }, Qt::QueuedConnection);
}

void FavoriteTree::Rename(const Text& path, const Text& name) {
    const auto renamed = m_rename(path, name);
    if (!renamed) return;
    Reload(Favorites::FolderOf(path));
    Select(*renamed);
}

void FavoriteTree::dropEvent(QDropEvent* event) {
    const QTreeWidgetItem* target = itemAt(event->position().toPoint());
    if (target && !IsFolder(*target)) target = target->parent();
    // The disk says what becomes of the line, not the widget.
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    Dropped(SelectedPath(), target ? PathOf(*target) : m_root);
}

} // namespace tessa::qt
