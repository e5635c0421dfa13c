#pragma once
#include "base/Text.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tessa {

/// A window that a page wants to open by itself.
struct HeldWindow {
    Text Address;
    Text Place; ///< the host that it is of; empty where it is of none
};

/// Which windows a page may open without a click of its user. What is decided for its site holds. Otherwise its windows
/// are held back, and all of them together are one question.
class PopupRule {
public:
    /// Of so many one hears; who wants more is refused by the engine.
    static constexpr std::size_t kMost = 20;

    enum class Step {
        Open,
        Refuse,
        Ask,   ///< the window is held, and its user is asked
        Reword ///< it is held, and what is asked already says so
    };
    [[nodiscard]] Step Want(std::optional<bool> decided, HeldWindow window);
    /// Whether no more windows are held.
    [[nodiscard]] bool Full() const { return m_held.size() >= kMost; }

    /// What is asked, of a page that is called so.
    [[nodiscard]] Text Words(TextView asker) const;
    /// The answers to it. Only what can be remembered is allowed for good.
    [[nodiscard]] static std::vector<Text> Answers(bool mayRemember);

    /// What comes of an answer.
    struct Verdict {
        std::vector<Text> Opened; ///< the addresses of the windows to open, only such as are of the web
        bool Remember = false;    ///< the site may open windows from now on
    };
    /// The question was answered with one of those, or left. From now on the page may ask again.
    [[nodiscard]] Verdict Answer(std::size_t answer);

private:
    std::vector<HeldWindow> m_held;
};

} // namespace tessa
