#pragma once
#include <QTreeWidget>

namespace tessa::qt {

/// A cell with its text as tool tip. What a page calls itself is text; as a tool tip Qt would read it as HTML if it
/// looks like it.
void ShowCell(QTreeWidgetItem& item, int column, const QString& text);

/// Shows the lines, each filled in by `fill(item, line)`. Items stay where they are while only their texts change, and
/// with them the keyboard's place. The tree says nothing of it.
template<typename Lines, typename Fill>
void ShowLines(QTreeWidget& tree, const Lines& lines, Fill fill) {
    const QSignalBlocker quiet(&tree);
    const int count = static_cast<int>(lines.size());
    while (tree.topLevelItemCount() > count) delete tree.takeTopLevelItem(tree.topLevelItemCount() - 1);
    while (tree.topLevelItemCount() < count) tree.addTopLevelItem(new QTreeWidgetItem);
    for (int i = 0; i < count; ++i) fill(*tree.topLevelItem(i), lines[static_cast<std::size_t>(i)]);
    tree.viewport()->update();
}

} // namespace tessa::qt
