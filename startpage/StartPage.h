#pragma once
#include "base/Text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// A TessaGroup as the home page shows it.
struct StartGroup {
    Text Name;
    std::vector<Text> Addresses;
    Text News{}; ///< what is new in them, in words; empty when nothing is, or nobody knows
};

/// A Favorite as the home page shows it.
struct StartLink {
    Text Title;
    Text Address;
    bool operator==(const StartLink&) const = default;
};

/// What the home page shows. All of it is other people's text.
struct StartContent {
    std::vector<StartGroup> Groups{};
    std::size_t MoreGroups = 0; ///< how many more there are
    std::vector<StartLink> Favorites{};
    std::vector<StartLink> Sites{};  ///< used most
    std::vector<StartLink> Closed{}; ///< tabs that were closed last
    bool Dark = false;               ///< the desktop's colours are dark
    Text Notice{};                   ///< said quietly at the end; empty for nothing
    bool AsksAboutBlocking = false;  ///< the user has not said yet whether advertisements are to be blocked
};

/// The home page, which the program makes itself: a search field, the TessaGroups as cards, the Favorites. It has no
/// scripts and loads nothing.
namespace StartPage {

/// The groups and Favorites of two folders; an empty path stands for none. The group folder has the separator at the
/// end. Reads no more groups than the page shows.
[[nodiscard]] StartContent Read(TextView groupFolder, TextView favoritesFolder);
/// The page, in UTF-8.
[[nodiscard]] std::string Html(const StartContent& content);
/// The name of the group that a link of the page opens; nothing for every other address.
[[nodiscard]] std::optional<Text> GroupOf(std::string_view link);
/// Whether advertisements are to be blocked, by the answer that a link of the page stands for.
[[nodiscard]] std::optional<bool> BlockingAnswerOf(std::string_view link);
/// The words that the page's search field sends; nothing for every other address.
[[nodiscard]] std::optional<Text> WordsOf(std::string_view link);

} // namespace StartPage

} // namespace tessa
