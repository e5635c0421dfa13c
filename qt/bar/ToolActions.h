#pragma once
#include "bar/CommandBar.h"

#include <QObject>
#include <QPoint>
#include <memory>
#include <unordered_map>

class QAction;

namespace tessa::qt {

/// The actions of a command bar: one a tool, however many menus and toolbars show it. An action lives until its tool
/// is listed nowhere any more and `Prune` is called.
class ToolActions final : public QObject {
    Q_OBJECT

public:
    /// The bar outlives it.
    explicit ToolActions(CommandBar& bar);

    QAction* For(const std::shared_ptr<Tool>& tool);
    /// The action of the first tool of that name; nothing when no band and no menu has shown it yet.
    [[nodiscard]] QAction* Find(TextView name) const;
    /// The tool that an action shows; nothing for an action of someone else.
    [[nodiscard]] std::shared_ptr<Tool> ToolOf(const QAction* action) const;
    /// Reports which tool of a menu or the menu bar is at a point of the screen, whenever that changes. An action
    /// itself tells only that the pointer comes.
    void ReportPointer(QPoint at);
    /// The pointer is on no menu any more.
    void ReportNoPointer();
    /// Forgets the actions of tools that nobody else holds.
    void Prune();
    /// Looks all pictures up again, in the theme that is now chosen. Until it is first called there are none: looking
    /// them up takes longer than making the window.
    void ShowIcons();

private:
    struct Shown {
        std::shared_ptr<Tool> tool;
        QAction* action = nullptr;
        Connections connections;
    };

    void Mirror(Shown& entry);
    void ShowShortcuts() const;
    void ShowShortcut(const Tool& tool, QAction& action) const;
    void OnTriggered(Tool& tool, QAction& action);

    CommandBar& m_bar;
    std::unordered_map<const Tool*, Shown> m_shown;
    const QAction* m_pointed = nullptr; ///< under the pointer; only to compare with
    bool m_icons = false;
    Connection m_keys;
};

} // namespace tessa::qt
