#pragma once
#include "platform/VisitStore.h"
#include "platform/WallClock.h"
#include "startpage/StartPage.h"
#include "tabs/ClosedTabs.h"

#include <map>
#include <memory>

namespace tessa {

/// What the home page tells of what was read: what is new in the groups, the sites that are used most. The page is
/// made at once, and what the store has to say comes later; so it is asked before. Owned by the main window; what it
/// refers to outlives it.
class HomeFacts {
public:
    struct Parts {
        VisitStore& store;
        const WallClock& clock;
        const ClosedTabs& closed;
        const Text& groupFolder; ///< with the separator at the end
    };
    explicit HomeFacts(Parts parts) : m_parts(parts) {}
    HomeFacts(const HomeFacts&) = delete;
    HomeFacts& operator=(const HomeFacts&) = delete;

    /// Asks for all of it anew; `Changed` tells when something else has come of it.
    void Ask();
    /// Forgets all of it, at once.
    void Forget();
    /// Puts what is known into what the home page shows.
    void AddTo(StartContent& content);
    /// A home page has come into its tab. While it came, it could not be made anew; so `Changed` is told once more when
    /// more has become known since.
    void PageCame() {
        if (m_newer) Changed();
    }

    /// The home page is to be made anew.
    Signal<void()> Changed;

private:
    /// Of a group: how many of its pages are known to be new, and how many it has.
    struct GroupNews {
        std::size_t fresh = 0, pages = 0;
        bool operator==(const GroupNews&) const = default;
    };
    void AskGroup(const Text& name, const Text& path);
    void TellChanged();
    void TakeSites(const HistoryOverview& overview);

    Parts m_parts;
    std::map<Text, GroupNews> m_groups;
    std::vector<StartLink> m_sites;
    bool m_newer = false; ///< than the home page that was made last
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace tessa
