#pragma once
#include "base/Text.h"

namespace tessa {

/// How a page came to navigate.
enum class NavigationCause { Typed, History, Reload, Link, Form, Other };

/// A navigation to an address of the program's own scheme.
struct OwnNavigation {
    bool FromOwnPage = false; ///< what is shown is a page of the program's own
    bool ToOwnPage = false;   ///< the address is one
    bool MainFrame = false;
    NavigationCause Cause = NavigationCause::Other;
};

/// Who may reach the pages of the program's own: the program and the history, never another page. A page could
/// otherwise bring its user where a link opens groups and starts searches.
namespace OwnAccess {

enum class Step {
    Go,
    Refuse,
    Follow ///< it asks the program for something, and the page stays
};
[[nodiscard]] Step StepFor(const OwnNavigation& navigation);

/// Whether they may be fetched on behalf of that origin; empty for the program itself.
[[nodiscard]] bool MayFetch(TextView asker);

} // namespace OwnAccess

} // namespace tessa
