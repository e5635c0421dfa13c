#pragma once
#include "base/Text.h"
#include "downloads/DownloadRule.h"

#include <optional>
#include <vector>

namespace tessa {

/// The files that one page saves: which it may, and which wait for its user's answer.
class PageSaves {
public:
    /// So many files wait.
    static constexpr std::size_t kMostHeld = 20;

    enum class Step {
        Save,
        Refuse,
        Ask,  ///< the file waits, and the user is asked
        Wait, ///< it waits for what is asked already
    };
    /// The page saves a file. `decided` is what holds for its site, `person` whether one has acted in it since it did
    /// so last.
    [[nodiscard]] Step Want(std::optional<bool> decided, bool person, TextView address);

    /// The user was asked: the addresses of the files that are to be fetched now.
    [[nodiscard]] std::vector<Text> Answer(bool allowed);

    /// A person goes to another page, or what was decided is forgotten. A question that is open stays open.
    void BeginAnew() { m_rule.PersonNavigated(); }

private:
    DownloadRule m_rule;
    std::vector<Text> m_held;
    bool m_asks = false;
};

} // namespace tessa
