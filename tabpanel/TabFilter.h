#pragma once
#include "base/Text.h"

#include <vector>

namespace tessa {

/// Which tabs are left in a list when somebody types. Each word of his, whatever its characters, has to be somewhere in
/// what a tab says. Case, accents and width do not count.
class TabFilter {
public:
    TabFilter() = default;
    explicit TabFilter(TextView typed);

    /// Whether it leaves anything out.
    [[nodiscard]] bool Any() const { return !m_words.empty(); }
    /// Whether all words are there, each in any of these texts.
    [[nodiscard]] bool Fits(const std::vector<TextView>& said) const;

private:
    std::vector<Text> m_words;
};

} // namespace tessa
