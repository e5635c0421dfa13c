#pragma once
#include <cstddef>

namespace tessa {

/// How many files a page may save by itself. A few are what the user expects of a click; from there on the page asks.
/// Whoever goes to another page begins anew.
class DownloadRule {
public:
    static constexpr std::size_t kFree = 3;

    /// Whether the page may save one more file now; counts it if so.
    [[nodiscard]] bool Take() {
        if (m_refused || (!m_allowed && m_taken >= kFree)) return false;
        ++m_taken;
        return true;
    }
    /// The user lets the page save as many as it likes.
    void Allow() { m_allowed = true; }
    /// A person clicks or types in the page: what comes of it is wanted, unless it was refused before.
    void PersonActed() { m_taken = 0; }
    /// The user does not; the page is not to ask again.
    void Refuse() { m_refused = true; }
    [[nodiscard]] bool Refused() const { return m_refused; }
    void PersonNavigated() { *this = {}; }

private:
    std::size_t m_taken = 0;
    bool m_allowed = false;
    bool m_refused = false;
};

} // namespace tessa
