#include "qt/bar/ToolActions.h"

#include "commands/keys/WindowKeys.h"
#include "qt/base/Icons.h"
#include "qt/base/KeyFilter.h"
#include "qt/base/Strings.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <algorithm>

namespace tessa::qt {

namespace {

QIcon PictureOf(const Tool& tool) { return Icons::WithBadge(Icons::Of(tool.Image), tool.Badge()); }

// A menu that has the mouse gets its moves wherever the pointer is, so the point itself is asked about.
const QAction* ActionUnder(QPoint at) {
    const QWidget* widget = QApplication::widgetAt(at);
    if (const auto* menu = qobject_cast<const QMenu*>(widget)) return menu->actionAt(menu->mapFromGlobal(at));
    const auto* menuBar = qobject_cast<const QMenuBar*>(widget);
    return menuBar ? menuBar->actionAt(menuBar->mapFromGlobal(at)) : nullptr;
}

// Keeps the picture's room until it is looked up, so that the toolbars do not jump then.
QIcon Placeholder(const Tool& tool) {
    if (tool.Image.Name.empty()) return {};
    QPixmap empty(22, 22);
    empty.fill(Qt::transparent);
    return QIcon(empty);
}

} // namespace

ToolActions::ToolActions(CommandBar& bar)
    : m_bar(bar), m_keys(bar.Combinations.Changed.Connect([this] { ShowShortcuts(); })) {}

void ToolActions::ShowShortcuts() const {
    for (const auto& [key, shown] : m_shown) ShowShortcut(*shown.tool, *shown.action);
}

QAction* ToolActions::For(const std::shared_ptr<Tool>& tool) {
    const auto found = m_shown.find(tool.get());
    if (found != m_shown.end()) return found->second.action;
    auto* action = new QAction(this);
    action->setObjectName(ToQt(tool->Name()));
    action->setIcon(m_icons ? PictureOf(*tool) : Placeholder(*tool));
    ShowShortcut(*tool, *action);
    Mirror(m_shown.emplace(tool.get(), Shown{tool, action, {}}).first->second);
    return action;
}

void ToolActions::Mirror(Shown& entry) {
    QAction* shown = entry.action;
    Tool& tool = *entry.tool;
    Connections& all = entry.connections;
    all += tool.Caption.Attach([shown](const Text& caption) { shown->setText(ToQt(caption)); });
    all += tool.Enabled.Attach([shown](bool enabled) { shown->setEnabled(enabled); });
    all += tool.Visible.Attach([shown](bool visible) { shown->setVisible(visible); });
    all += tool.Badge.Mirror.Connect([this, &tool, shown](std::size_t) {
        if (m_icons) shown->setIcon(PictureOf(tool));
    });
    all += tool.Checked.Attach([shown](bool checked) {
        // A tool shows itself to be one that is checked by being checked for the first time.
        if (checked) {
            shown->setCheckable(true);
            // In a menu the mark would be a frame around the picture, hardly to be seen.
            shown->setIconVisibleInMenu(false);
        }
        shown->setChecked(checked);
    });
    connect(shown, &QAction::triggered, this, [this, &tool, shown] { OnTriggered(tool, *shown); });
    connect(shown, &QAction::hovered, this, [this, &tool] { m_bar.MouseOver(&tool); });
}

// The bar itself answers the keys, before Qt does: the action only shows them.
void ToolActions::ShowShortcut(const Tool& tool, QAction& action) const {
    const auto key = ToolKeys::Shown(m_bar, tool.Name());
    const QKeySequence keys = key ? KeyFilter::Sequence(*key) : QKeySequence();
    action.setShortcutContext(Qt::WidgetShortcut);
    action.setShortcut(keys);
    // Qt leaves it out of menus that do not hang below the menu bar.
    action.setShortcutVisibleInContextMenu(true);
    const QString tip = ToQt(tool.TooltipText);
    const bool both = !tip.isEmpty() && !keys.isEmpty();
    action.setToolTip(both ? QStringLiteral("%1 (%2)").arg(tip, keys.toString(QKeySequence::NativeText)) : tip);
}

void ToolActions::OnTriggered(Tool& tool, QAction& action) {
    // The tool decides whether it is checked; Qt has toggled the action by itself.
    action.setChecked(tool.Checked());
    // The click may take the tool off its band.
    const auto held = m_shown.at(&tool).tool;
    m_bar.UserClick(*held);
}

QAction* ToolActions::Find(TextView name) const {
    const Tool* tool = m_bar.Find(name);
    const auto found = m_shown.find(tool);
    return found == m_shown.end() ? nullptr : found->second.action;
}

std::shared_ptr<Tool> ToolActions::ToolOf(const QAction* action) const {
    const auto found =
        std::ranges::find_if(m_shown, [action](const auto& each) { return each.second.action == action; });
    return found == m_shown.end() ? nullptr : found->second.tool;
}

void ToolActions::ReportPointer(QPoint at) {
    const QAction* action = ActionUnder(at);
    if (action == m_pointed) return;
    m_pointed = action;
    const auto tool = ToolOf(action);
    m_bar.MouseOver(tool.get());
}

void ToolActions::ReportNoPointer() {
    m_pointed = nullptr;
    m_bar.MouseOver(nullptr);
}

void ToolActions::Prune() {
    std::erase_if(m_shown, [](const auto& entry) {
        if (entry.second.tool.use_count() > 1) return false;
        entry.second.action->deleteLater();
        return true;
    });
}

void ToolActions::ShowIcons() {
    m_icons = true;
    for (const auto& [key, shown] : m_shown) shown.action->setIcon(PictureOf(*shown.tool));
}

} // namespace tessa::qt
