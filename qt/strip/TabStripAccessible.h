#pragma once
#include "base/Signal.h"
#include "base/Text.h"

#include <QAccessibleWidget>
#include <optional>
#include <unordered_map>

namespace tessa::qt {

class TabStripView;

/// The tab strip as screen readers and other assistive tools see it. It is a list of page tabs, then a button
/// for each group, then the one for a new tab. Each tab has its caption as name, its state, and the action that selects
/// it; a tab of a folded group cannot be seen. Owned by Qt's accessibility.
class TabStripAccessible final : public QAccessibleWidget {
public:
    explicit TabStripAccessible(TabStripView& strip);
    ~TabStripAccessible() override;

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

private:
    struct Known {
        QAccessible::Id id;
        Text caption;
        bool chosen = false;
    };

    /// Announces what has changed since the last time: tabs come and gone, captions, the selection.
    void Follow();
    [[nodiscard]] QAccessibleInterface* Interface(const Text& key) const;
    [[nodiscard]] QAccessibleInterface* NewTab() const;
    [[nodiscard]] QAccessibleInterface* Head(std::int32_t group) const;
    void FollowHeads();
    void ForgetRemoved();
    void AnnounceTabs();
    void AnnounceSelection();

    TabStripView& m_strip;
    mutable std::unordered_map<Text, Known> m_known;         ///< by the tab's key
    mutable std::unordered_map<std::int32_t, Known> m_heads; ///< by the group's number
    mutable std::optional<QAccessible::Id> m_newTab;
    Text m_selected;
    bool m_focused = false;
    Connections m_connections;
};

/// Makes Qt's accessibility know tab strips. May run any number of times.
void InstallTabStripAccessibility();

} // namespace tessa::qt
