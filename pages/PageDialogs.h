#pragma once
#include <cstddef>

namespace tessa {

/// How often a page may speak in dialogs. From its second on the user can silence it. That holds until the user goes to
/// another page, not until the page does.
class PageDialogRule {
public:
    [[nodiscard]] bool Silenced() const { return m_silenced; }
    /// Whether the next dialog offers to silence the page.
    [[nodiscard]] bool OffersSilence() const { return m_shown > 0; }
    void Shown() { ++m_shown; }
    void Silence() { m_silenced = true; }
    /// A person went to a page: by typing, a click, a menu.
    void PersonNavigated() { *this = {}; }

private:
    std::size_t m_shown = 0;
    bool m_silenced = false;
};

} // namespace tessa
