#pragma once
#include <chrono>
#include <functional>
#include <optional>
#include <utility>

namespace tessa {

/// That a person has just clicked or typed in a page. The note is good for one thing, and for some seconds: what comes
/// later is not what that person wanted.
class PersonNote {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds kTime{5};

    void Make() { m_made = Now(); }
    /// Whether there is one; uses it up.
    [[nodiscard]] bool Take() {
        const auto made = std::exchange(m_made, std::nullopt);
        return made && Now() - *made < kTime;
    }

    std::function<Clock::time_point()> Now = Clock::now;

private:
    std::optional<Clock::time_point> m_made;
};

} // namespace tessa
