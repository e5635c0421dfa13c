#pragma once
#include "base/Signal.h"
#include "forms/TabStrip.h"
#include "tabs/ViewArray.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace tessa {

/// Some pages hold what their user has entered and not sent. This asks them, and then the user, before they are closed.
/// Owned by the tab set; what it refers to outlives it.
class PageLeaving {
public:
    PageLeaving(TabStrip& pcPage, ViewArray& Browser) : m_pcPage(pcPage), m_browser(Browser) {}

    /// Runs `then` when the page of view `Index` may go. That is at once when nobody has done anything in it. Otherwise
    /// it is shown to its user, and may go when the page or the user agrees. Never when he stays. Of a page that is
    /// being asked nothing more is wanted.
    void WhenLeft(std::int32_t Index, std::function<void()> then);
    /// The page of view `Index` is to stay after all, if it is being asked. One that has taken its leave by then is
    /// loaded again.
    void LetStay(std::int32_t Index);
    /// Whether the page of view `Index` is being asked.
    [[nodiscard]] bool Asks(std::int32_t Index) const { return m_asked.contains(Index); }

    /// Tells which pages would hold their user, as indexes of views in the order of the tabs. At once when no page can;
    /// else later, and while that is being found out nothing more is wanted.
    void FindHolders(std::function<void(const std::vector<std::int32_t>&)> told);

    /// The tab of view `Index` goes, so its page answers no more.
    void Forget(std::int32_t Index);

    /// The user has answered that the page of that view stays.
    Signal<void(std::int32_t Index)> Stays;

private:
    struct Search {
        std::set<std::int32_t> Waiting;
        std::set<std::int32_t> Holders;
        std::function<void(const std::vector<std::int32_t>&)> Told;
    };

    /// Which question an answer is to.
    using Question = std::uint64_t;

    void OnAnswer(std::int32_t Index, Question question, bool holds, const std::function<void()>& then);
    [[nodiscard]] bool Awaits(std::int32_t Index, Question question) const;
    void OnFound(std::int32_t Index, bool holds);
    [[nodiscard]] std::vector<std::int32_t> InOrder(const std::set<std::int32_t>& indexes) const;

    TabStrip& m_pcPage;
    ViewArray& m_browser;
    std::map<std::int32_t, Question> m_asked; ///< by the indexes of views
    Question m_questions = 0;
    std::optional<Search> m_search;
};

} // namespace tessa
