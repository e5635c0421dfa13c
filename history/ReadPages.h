#pragma once
#include "base/Signal.h"
#include "forms/TabStrip.h"
#include "history/HistoryRules.h"
#include "history/PageNews.h"
#include "history/ReadingRound.h"
#include "platform/SteadyClock.h"
#include "platform/VisitStore.h"
#include "platform/WallClock.h"
#include "tabs/TabGroups.h"

#include <map>
#include <memory>

namespace tessa {

/// Follows what the open tabs show. It has each page read once it has loaded and rests, and again when it is left. It
/// remembers what may be remembered, and tells on the tab whether there is anything new. Owned by the main window; what
/// it refers to outlives it.
class ReadPages {
public:
    using Time = SteadyClock::Time;

    /// A page that has loaded, or beside which another has, is left in peace for so long.
    static constexpr Time kRest{1000};
    /// While others load it waits, but no longer than this.
    static constexpr Time kPatience{15000};

    struct Parts {
        TabStrip& pcPage;
        ViewArray& Browser;
        const TabGroups& tabGroups;
        VisitStore& store;
        const WallClock& clock;
        const SteadyClock& steady;
    };
    explicit ReadPages(Parts parts) : m_parts(parts) {}
    ReadPages(const ReadPages&) = delete;
    ReadPages& operator=(const ReadPages&) = delete;

    /// What is known of the page of a view.
    struct Page {
        Text Address{}; ///< of the document that was read; empty before
        std::vector<Passage> Passages{};
        std::vector<Passage> Glanced{}; ///< what was seen of it at a glance, until it was read
        PageNews News{};
        bool WasReadBefore = false; ///< then it is known whether anything is new
        bool Loaded = false;
        bool Seen = false; ///< it was in front since it has loaded
    };
    /// Nothing for a view of which nothing is known.
    [[nodiscard]] const Page* Find(std::int32_t index) const;
    /// Whether the words of that view's page are known, asleep or awake.
    [[nodiscard]] bool HasText(std::int32_t index) const;
    [[nodiscard]] std::vector<TabOfRound> Round() const;
    /// Those whose page says what it said before, or that were read.
    [[nodiscard]] std::vector<std::int32_t> WithoutNews() const;
    [[nodiscard]] std::vector<std::int32_t> Read() const;

    void SetOptions(const HistoryOptions& options);
    [[nodiscard]] const HistoryOptions& Options() const { return m_options; }

    // What happens.
    /// The view is about to go to another page: what it shows is read once more.
    void Begins(std::int32_t index);
    /// It shows another document, or another part of one.
    void Shows(std::int32_t index, TextView address);
    void Loads(std::int32_t index);
    /// Its tab is about to close; its view still lives.
    void Closes(std::int32_t index);
    /// The strip has changed, perhaps what is in front.
    void Touch();
    /// What was read was cleared: what is open by now is remembered no more, until it is loaded again.
    void Forget();
    /// Reads those pages that have come to rest.
    void Look();
    /// Marks what is new in the page of that view, and brings the next new passage into sight. Returns its number, from
    /// 1; 0 without any.
    std::size_t ShowNextNews(std::int32_t index);
    /// Has the page of that view read now; `Changed` tells when that is done. One that was not read before is glanced
    /// at, and read when it rests. Nobody has visited it by that, so what is remembered stays as it is. False for a
    /// page that cannot be asked.
    bool ReadNow(std::int32_t index);
    /// What the page of that view says, as far as it is known.
    [[nodiscard]] const std::vector<Passage>& TextOf(std::int32_t index) const;

    /// Has `Look` called once after that time, instead of when it was asked for before.
    Signal<void(Time)> Schedule;
    /// What is known of the view's page has changed.
    Signal<void(std::int32_t index)> Changed;
    /// A page was remembered.
    Signal<void()> Remembered;

private:
    struct Followed {
        Page page;
        std::uint64_t document = 0; ///< counts them, so that an answer to an earlier one is known
        Time loaded{0};
        Time due{0}; ///< when it is to be read; 0 for not
        Text group, nextGroup, shown;
        bool begun = false;                ///< it is about to go elsewhere
        bool asked = false, known = false; ///< the store was asked for it, and has answered
        bool told = false;                 ///< the store has this visit already
        bool pictured = false;             ///< and its icon
        PageAsRead before;
        std::vector<Text> news; ///< the new passages
        bool asksPassword = false;
        bool forgotten = false;    ///< it was there when what was read was cleared
        bool searched = false;     ///< somebody searches in it
        std::size_t shownNews = 0; ///< which new passage was brought into sight last, from 1
    };

    /// What a page is read for.
    enum class Use { Search, Remember };
    bool Ask(std::int32_t index, Use use);
    bool Glance(std::int32_t index);
    void OnGlance(std::int32_t index, std::uint64_t document, TextView gathered);
    [[nodiscard]] PageReading* ReadingOf(std::int32_t index) const;
    void OnText(std::int32_t index, std::uint64_t document, Use use, TextView gathered);
    void OnKnown(std::int32_t index, std::uint64_t document, const std::vector<HistoryEntry>& entries);
    void Judge(std::int32_t index, Followed& followed);
    void ShowNews(std::int32_t index, const Followed& followed);
    /// Where nothing is remembered, a page is read only when somebody searches in it.
    void ReadToRemember(std::int32_t index);
    void ReadAtRest(std::int32_t index);
    void See(std::int32_t index);
    void Keep(std::int32_t index, Followed& followed, const std::optional<PageAsRead>& asRead);
    /// What is known of the visit but for the text.
    [[nodiscard]] HistoryVisit VisitOf(const Followed& followed, const ArrayView& view) const;
    void KeepLast(const Followed& last, HistoryVisit visit, TextView gathered);
    [[nodiscard]] Kept KeptOf(std::int32_t index, const Followed& followed) const;
    [[nodiscard]] Time Now() const { return m_parts.steady.Now(); }
    [[nodiscard]] Tab* TabOf(std::int32_t index) const;
    void ForgetClosed();
    [[nodiscard]] bool AnyLoads() const;
    void ScheduleNext();

    Parts m_parts;
    HistoryOptions m_options;
    std::map<std::int32_t, Followed> m_pages;
    std::int32_t m_front = 0;
    Time m_lastLoaded{0}; ///< when any page did
    std::uint64_t m_documents = 0;
    bool m_limited = false; ///< the store knows how much it may keep
    /// Ends with this object; the store may answer later.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace tessa
