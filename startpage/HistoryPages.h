#pragma once
#include "groups/GroupCommands.h"
#include "platform/VisitStore.h"
#include "platform/WallClock.h"
#include "startpage/HistoryPage.h"
#include "tabs/TabSet.h"

#include <map>
#include <memory>

namespace tessa {

/// The tabs that show the page of the history: answers what their scripts ask for. Owned by the main window; what it
/// refers to outlives it.
class HistoryPages {
public:
    struct Parts {
        TabSet& tabs;
        TabStrip& pcPage;
        ViewArray& Browser;
        GroupCommands& groups;
        MessageBoxes& messages;
        FileDialogs& files;
        VisitStore& store;
        const WallClock& clock;
        const Text& groupFolder; ///< with the separator at the end
    };
    explicit HistoryPages(Parts parts) : m_parts(parts) {}
    HistoryPages(const HistoryPages&) = delete;
    HistoryPages& operator=(const HistoryPages&) = delete;

    /// Shows the page: the tab that does already, or a new one.
    void Show();
    /// A view has loaded; when it shows the page, its script begins.
    void Loads(std::int32_t index);
    /// The script of the page in that view asks for something. What no page of ours shows is not answered.
    void Ask(std::int32_t index, TextView message);
    /// What is remembered has changed elsewhere.
    void AskAgain();

    /// A TessaGroup was saved.
    Signal<void()> GroupSaved;

private:
    void Find(std::int32_t index, const HistoryRequest& request);
    void Open(const std::vector<std::int64_t>& ids);
    void Keep(const std::vector<std::int64_t>& ids);
    void Remove(const HistoryRemoval& removal);
    void RemoveSite(const Text& site);
    void RemoveDay(std::int64_t from, std::int64_t until);
    void Tell(std::int32_t index, TextView message);
    [[nodiscard]] bool Shows(std::int32_t index) const;
    /// The addresses of those entries, as far as they were told to the page.
    [[nodiscard]] std::vector<Text> AddressesOf(const std::vector<std::int64_t>& ids) const;

    Parts m_parts;
    std::map<std::int64_t, Text> m_addresses; ///< by the entries' numbers
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace tessa
