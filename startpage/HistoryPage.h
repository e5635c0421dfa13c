#pragma once
#include "history/SearchText.h"
#include "platform/VisitStore.h"
#include "platform/WallClock.h"

#include <optional>
#include <string>
#include <vector>

namespace tessa {

/// What the page of the history asks the program for.
struct HistoryRequest {
    enum class Kind { Find, Open, Keep, Delete, DeleteSite, DeleteDay };
    Kind What = Kind::Find;
    std::int64_t Number = 0; ///< of the question, which the answer repeats
    Text Words{}, Site{}, Group{};
    std::int64_t Below = 0; ///< goes on behind that entry; 0 from the first one on
    std::vector<std::int64_t> Ids{};
    std::int64_t From = 0, Until = 0; ///< of a day
};

/// The page of what was read, which the program makes itself. It loads nothing and has no script of its own: one of the
/// program's runs beside it, which asks for lists and shows them.
namespace HistoryPage {

/// So many entries are told at a time.
inline constexpr std::size_t kEntries = 60;

/// The page without its lists, in UTF-8.
[[nodiscard]] std::string Html(bool dark);
/// What the page's script asks for; nothing for any other text.
[[nodiscard]] std::optional<HistoryRequest> RequestIn(TextView message);
/// The question of the store that is asked for that.
[[nodiscard]] HistoryQuery QueryOf(const HistoryRequest& request);
/// The answer, as the page's script understands it. All of the entries is other people's text.
[[nodiscard]] Text Answer(const HistoryRequest& request, const HistoryFound& found, const WallClock& clock);
[[nodiscard]] Text GroupsAnswer(const std::vector<Text>& groups);
/// Has the page ask again for what it shows.
inline constexpr TextView kAskAgain = u"again";
/// Likewise, unless its user has ticked some of what it shows.
inline constexpr TextView kLookAnew = u"anew";

} // namespace HistoryPage

} // namespace tessa
