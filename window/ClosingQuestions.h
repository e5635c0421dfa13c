#pragma once
#include "downloads/Downloads.h"
#include "platform/Dialogs.h"
#include "platform/MainWindow.h"
#include "tabs/TabSet.h"

#include <vector>

namespace tessa {

/// What the user is asked before the window closes. Owned by the main window.
class ClosingQuestions {
public:
    /// What has something against it, and the window; all of it outlives this object.
    struct Parts {
        TabSet& tabs;
        TabStrip& pcPage;
        Downloads& downloads;
        MainWindow& window;
        MessageBoxes& messages;
    };
    explicit ClosingQuestions(Parts parts) : m_parts(parts) {}

    /// Asks when pages hold unsent text, and while downloads run. Pages answer in a while: this then says no, and has
    /// the window close later.
    [[nodiscard]] bool MayClose();

private:
    [[nodiscard]] bool PagesLetGo();
    [[nodiscard]] bool UserLeaves(const std::vector<std::int32_t>& holders);

    Parts m_parts;
    bool m_left = false; ///< all pages have let their user go, or he has left them
};

} // namespace tessa
