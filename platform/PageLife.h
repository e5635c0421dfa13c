#pragma once
#include "base/ResumeNext.h"

#include <cstdint>
#include <string>

namespace tessa {

/// What a page does that must not be interrupted.
struct PageActivity {
    bool Loading = false;    ///< it loads, or waits for its turn to
    bool Audible = false;    ///< it can be heard, were it not muted
    bool HoldsInput = false; ///< its user has typed or chosen something that was not sent
    bool Downloads = false;  ///< it saves a file
    bool Asks = false;       ///< it waits for an answer, or something covers it
    bool Inspected = false;  ///< developer tools look at it
    bool FullScreen = false; ///< it fills the screen
    bool Prints = false;     ///< it is being printed
    bool Visible = false;    ///< it is on the screen, maybe for a moment longer than its tab is in front

    [[nodiscard]] bool Any() const {
        return Loading || Audible || HoldsInput || Downloads || Asks || Inspected || FullScreen || Prints || Visible;
    }
};

/// How a page lives: whether it runs, in which process, and how it is put to sleep. Belongs to its view.
class PageLife {
public:
    virtual ~PageLife() = default;

    [[nodiscard]] virtual PageActivity Activity() const = 0;
    /// Whether the page has been put to sleep and was not woken since.
    [[nodiscard]] virtual bool Asleep() const = 0;
    /// Halts the page and frees its memory, as far as the engine has no reason against it. Address, title, history and
    /// icon stay. It wakes by itself when it comes to the front or is loaded. Fails for a page that must stay awake.
    virtual Outcome Sleep() = 0;

    /// The page's icon as a small PNG, also while it sleeps; empty for none.
    [[nodiscard]] virtual std::string Picture() const = 0;

    /// The number of the process that the page runs in, which others may share; 0 for none.
    [[nodiscard]] virtual std::int64_t Process() const = 0;
    /// Whether that process has died and the page was not loaded again.
    [[nodiscard]] virtual bool Ended() const = 0;
    /// Whether a page that runs in that process is being printed. Until that is done, the process cannot be ended.
    [[nodiscard]] virtual bool ProcessPrints() const = 0;
    /// Ends the process at once, with all that runs in it. Fails when there is none, or when it prints.
    virtual Outcome EndProcess() = 0;
};

} // namespace tessa
