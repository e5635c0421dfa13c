#pragma once
#include "base/Signal.h"
#include "favorites/FavoriteFiles.h"

#include <QTreeWidget>
#include <functional>

namespace tessa::qt {

/// A tree of the Favorites folder, or of its sub-folders alone. A folder is read when it is first opened.
class FavoriteTree final : public QTreeWidget {
public:
    enum class Shows { Everything, Folders };

    /// Renames what a line stands for: its new path, nothing when it keeps the old one.
    using Renamer = std::function<std::optional<Text>(const Text& path, const Text& name)>;

    FavoriteTree(Text root, Shows shows, Renamer rename);

    /// Selects the line of a path and opens the folders above it. Selects the root for a missing path.
    void Select(const Text& path);
    /// Reads a folder again that is shown; what was open below it stays open.
    void Reload(const Text& folder);
    /// Lets the user edit a line's name.
    void Edit(const Text& path);
    [[nodiscard]] Text SelectedPath() const;

    /// The user has selected a line.
    Signal<void(const Text& path)> Chosen;
    /// The user has dragged a line onto a folder, or onto a line in it.
    Signal<void(const Text& path, const Text& folder)> Dropped;

protected:
    void dropEvent(QDropEvent* event) override;

private:
    void Fill(QTreeWidgetItem& item, const Text& title, const Text& path, bool isFolder);
    void Load(QTreeWidgetItem& item);
    [[nodiscard]] QStringList ExpandedBelow(QTreeWidgetItem& item) const;
    void AddItem(QTreeWidgetItem& parent, const Favorites::Item& item);
    void OnChanged(QTreeWidgetItem& item);
    void Rename(const Text& path, const Text& name);
    [[nodiscard]] QTreeWidgetItem* Find(const Text& path);
    [[nodiscard]] QTreeWidgetItem& Root() const { return *topLevelItem(0); }

    Text m_root;
    Shows m_shows;
    Renamer m_rename;
    QIcon m_folderIcon, m_pageIcon;
};

} // namespace tessa::qt
