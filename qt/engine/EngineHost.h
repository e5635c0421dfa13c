#pragma once
#include "base/Text.h"
#include "qt/page/PageFullScreen.h"

#include <QRect>
#include <string>

namespace tessa {
class SitePermissions;
} // namespace tessa

namespace tessa::qt {

/// The program around the engine's pages, and what they need of it.
class EngineHost : public PageFullScreen::Window {
public:
    /// The address of the home page; empty for the program's own.
    [[nodiscard]] virtual Text HomeAddress() = 0;
    /// The program's own home page, in UTF-8. Asked for whenever it is loaded.
    [[nodiscard]] virtual std::string StartPage() = 0;
    /// What the bars beside the pages, and the panes of others, leave of the whole page area for the view; places them.
    [[nodiscard]] virtual QRect PageRect(const QRect& whole, std::int32_t index) = 0;
    /// What sites may do for good; outlives the views. Nothing to ask every time.
    [[nodiscard]] virtual SitePermissions* Permissions() = 0;
};

} // namespace tessa::qt
