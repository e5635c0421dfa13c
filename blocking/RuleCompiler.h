#pragma once
#include "blocking/NetworkCompiler.h"
#include "blocking/RuleLine.h"
#include "blocking/hiding/HidingCompiler.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// What was made of a list.
struct ListReport {
    std::size_t Network = 0; ///< rules for requests, those of hosts files too
    std::size_t Hiding = 0;
    std::map<RuleTrouble, std::size_t> Unknown; ///< lines that do nothing, by why

    [[nodiscard]] std::size_t UnknownLines() const;
};

/// Makes one image of all lists.
class RuleCompiler {
public:
    /// The most that is read of a list, in bytes, and of all lists, in rules.
    static constexpr std::size_t kMostListBytes = std::size_t{128} << 20;
    static constexpr std::size_t kMostRules = 2'000'000;

    /// Lists have their numbers in the order in which they come. What is no text yields lines that are no rules.
    ListReport AddList(std::string_view bytes);

    /// The image, see `RuleImage`. Nothing may be added after it.
    [[nodiscard]] std::string Image(std::uint64_t fingerprint);

private:
    RuleTrouble Add(const RuleLine& read, std::string_view line);

    std::uint32_t m_list = 0;
    std::vector<PackedList> m_lists;
    std::string m_strings;
    NetworkCompiler m_network{m_strings};
    HidingCompiler m_hiding{m_strings};
};

} // namespace tessa
