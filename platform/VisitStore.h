#pragma once
#include "base/Text.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessa {

/// What is to be remembered of a page. Times are seconds since 1970.
struct HistoryVisit {
    Text Address, Site, Title;
    Text Group{}; ///< the TessaGroup that it was opened from; empty for none, which leaves an older one
    std::int64_t When = 0;
    std::string Passages{};              ///< what it says; empty for what is not remembered
    std::optional<std::string> AsRead{}; ///< what it is compared with the next time; nothing leaves the older one
    std::optional<std::int32_t> Share{}; ///< how much of it was new, in percent; nothing when that is not known
    std::string Icon{};                  ///< a small picture, PNG; empty for none, which leaves an older one
    bool Again = false;                  ///< the same visit, told once more
};

/// A page that is remembered.
struct HistoryEntry {
    std::int64_t Id = 0; ///< rises with each visit of any page
    Text Address, Site, Title, Group;
    std::int64_t First = 0, Last = 0, Visits = 0;
    std::optional<std::int32_t> Share{}; ///< of its last comparison
    std::string Icon{};
    std::string Passages{}; ///< where they are asked for
    std::string AsRead{};   ///< only of `Load`
};

/// What is to be found, the latest visits first.
struct HistoryQuery {
    Text Match{};           ///< a query of the index of words; empty for every page
    Text Site{}, Group{};   ///< empty for any
    std::int64_t Below = 0; ///< only entries whose numbers are lower; 0 for all
    std::size_t Most = 50;
    bool Passages = false; ///< with what the pages say
};
struct HistoryFound {
    std::vector<HistoryEntry> Entries{};
    bool More = false; ///< there are others behind these
};

/// What is to be forgotten: all that fits everything said here; nothing said is everything.
struct HistoryRemoval {
    std::vector<std::int64_t> Ids{};             ///< empty for any
    Text Site{};                                 ///< with its subdomains left alone; empty for any
    std::optional<std::int64_t> From{}, Until{}; ///< the last visit was then or later, and before
};

/// What the home page and the filters need to know.
struct HistoryOverview {
    struct Site {
        Text Name, Address; ///< of the page of it that was read most
        std::int64_t Visits = 0;
        std::string Icon{};
    };
    std::vector<Site> Sites{}; ///< used most, the first most
    std::vector<Text> Groups{};
    std::int64_t Pages = 0;
};

/// The store of what was read. Answers come later, on the thread that asks, in the order of the questions of each kind;
/// never once the store has gone. Nothing here ever waits for the disk. Owned by the program's entry.
class VisitStore {
public:
    virtual ~VisitStore() = default;

    virtual void Keep(HistoryVisit visit) = 0;
    virtual void Find(const HistoryQuery& query, std::function<void(HistoryFound)> answer) = 0;
    /// The pages at these addresses, with all that is kept of them; those that are not known are left out.
    virtual void Load(std::vector<Text> addresses, std::function<void(std::vector<HistoryEntry>)> answer) = 0;
    virtual void Look(std::function<void(HistoryOverview)> answer) = 0;
    /// Forgets; `done` hears how many pages that were.
    virtual void Remove(HistoryRemoval removal, std::function<void(std::int64_t)> done) = 0;
    /// Forgets what is older, and what there is no room for, at once and from time to time.
    virtual void Limit(std::int32_t days, std::int32_t megabytes) = 0;
    /// Whether it can be used. Else nothing is kept, and nothing is found.
    [[nodiscard]] virtual bool Works() const = 0;
};

} // namespace tessa
