#pragma once
#include "pages/SitePermissions.h"

namespace tessa {

/// What one page may see and hear of its user: camera, microphone, screen. The engine does not tell when a page begins
/// or ends that. What the page itself says cannot be trusted. So it counts from the moment at which the user allowed it
/// until its document is gone.
class PageCaptures {
public:
    /// Allowed by the user; others than the above do not count.
    void Allow(SitePermission permission);
    /// The page is about to go elsewhere. What is allowed from now on may be the next document's, or still this one's.
    void BeginNavigation();
    /// Another document has come.
    void ShowDocument() { m_before = {}; }
    /// The page's process has ended, and whatever ran in it.
    void End() { m_before = m_since = {}; }

    [[nodiscard]] bool Empty() const { return Words().empty(); }
    /// As in "camera and screen"; empty for nothing.
    [[nodiscard]] Text Words() const;
    /// Says it of a page from that host, which may have none; empty for nothing.
    [[nodiscard]] Text Sentence(TextView host) const;

private:
    struct Devices {
        bool camera = false, microphone = false, screen = false;
    };
    Devices m_before, m_since; ///< since the last navigation began, and before
};

} // namespace tessa
