#pragma once
#include "platform/DefaultBrowser.h"

namespace tessa::qt {

/// The default browser by the desktop's own tool, `xdg-settings`, which knows programs by their installed desktop
/// entries. Without an installed entry of ours, or without the tool, there is nothing to ask and nothing is run.
class DesktopDefaultBrowser final : public DefaultBrowser {
public:
    /// Answers at once where the user's own list of programs names ours. Otherwise the tool is asked; one that does not
    /// answer soon counts as "nothing to ask". Name and path are not looked at: the desktop starts what the entry
    /// names.
    [[nodiscard]] bool IsDefault(TextView name, TextView path) override;
    /// What is known without running the tool.
    [[nodiscard]] bool KnownDefault() override;
    /// Starts the tool and lets it work; it takes seconds on some desktops and is ended after a minute.
    Outcome MakeDefault(TextView name, TextView path) override;
};

} // namespace tessa::qt
