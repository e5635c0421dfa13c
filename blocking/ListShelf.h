#pragma once
#include "base/Outcome.h"
#include "base/Text.h"
#include "blocking/CompiledRules.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// What is known of a list that is fetched.
struct ShelvedList {
    Text Address;
    Text Tag, Modified;        ///< what its server calls this state of it, for the next request
    std::int64_t Fetched = 0;  ///< when it came, in seconds; 0 for never
    std::int64_t Tried = 0;    ///< when it was asked for last
    std::int64_t Failures = 0; ///< how often in a row it did not come
    bool operator==(const ShelvedList&) const = default;
};

/// Whether what a server has sent is a list: text with rules in it, and no page of the web.
[[nodiscard]] bool LooksLikeList(std::string_view bytes);

/// The folder in which lists lie that were fetched, the user's own rules, and what was compiled of all. Each file is
/// replaced whole.
class ListShelf {
public:
    /// Between two looks for a newer list, in seconds; what did not come is asked for again after an hour, then after
    /// two, and so on up to this.
    static constexpr std::int64_t kRenewAfter = 4 * 24 * 3600, kTryAgainAfter = 3600;

    /// The folder is made when something is put into it. It ends without a separator.
    explicit ListShelf(std::string folder);

    /// The lists that are due at that time, among those with these addresses.
    [[nodiscard]] std::vector<ShelvedList> Due(const std::vector<Text>& addresses, std::int64_t now) const;
    [[nodiscard]] ShelvedList Find(TextView address) const;

    /// A list has come, or is as it was (no bytes), or has not come. Fails when it cannot be kept.
    [[nodiscard]] Outcome Keep(const ShelvedList& list, std::string_view bytes);
    void NoteSame(TextView address, std::int64_t now);
    void NoteFailure(TextView address, std::int64_t now);

    [[nodiscard]] std::string PathOf(TextView address) const;
    [[nodiscard]] std::string CacheFile() const { return m_folder + "/rules.cache"; }
    /// The rules of the user's own, line by line.
    [[nodiscard]] Text OwnRules() const;
    [[nodiscard]] Outcome KeepOwnRules(TextView rules);

    /// What is compiled for these lists, as the settings have them, in their order; the user's own rules come last.
    [[nodiscard]] std::vector<ListSource> SourcesOf(const std::vector<Text>& chosen) const;

private:
    void ReadRecords();
    [[nodiscard]] Outcome WriteRecords() const;
    [[nodiscard]] std::string OwnRulesPath() const { return m_folder + "/own-rules.txt"; }

    std::string m_folder;
    std::map<Text, ShelvedList, std::less<>> m_lists;
};

} // namespace tessa
