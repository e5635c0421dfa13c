#pragma once
#include "base/Text.h"
#include "tabs/KeptGroups.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// One open page of a session.
struct SessionPage {
    Text Address;
    Text Title;
    Text Name{}; ///< what its user has called the tab; empty for none
    bool operator==(const SessionPage&) const = default;
};

/// The open pages of one run of the program, in the order of their tabs.
struct Session {
    std::int64_t Time = 0;    ///< when it was last written, in seconds since 1970
    bool Ended = false;       ///< the program ended as it should
    bool Settled = false;     ///< the user has reopened its pages or does not want to be asked again
    std::size_t Selected = 0; ///< the 1-based page in front; 0 for none of them
    std::size_t Blanks = 0;   ///< so many tabs were open besides that showed nothing
    std::vector<SessionPage> Pages;
    KeptGroups Groups{};       ///< which of them are in groups and pinned; the first page is 1
    std::vector<Text> Tiles{}; ///< which of them lie side by side, see `TileText`; the first page is 1
    bool operator==(const Session&) const = default;
};

/// A session as the text of a file: a record of its own, then one for each page. Line ends and tabs inside a title
/// become blanks.
[[nodiscard]] std::string SessionBytes(const Session& session);

/// Reads what `SessionBytes` wrote, now or in the first versions. Nothing for anything else; of a text that breaks off,
/// the whole lines.
[[nodiscard]] std::optional<Session> SessionFromBytes(std::string_view bytes);

/// The session with those of its pages alone, counted from 0, as they lie side by side.
[[nodiscard]] Session PartOf(const Session& session, const std::vector<std::size_t>& pages);

/// When a session was last written and what was open in it, for its user. It names the first titles and counts the
/// other pages and the blank tabs. `when` is that time as the user reads it, which may be empty.
[[nodiscard]] Text SessionWords(const Session& session, TextView when);

/// Whether a tab with that address shows nothing.
[[nodiscard]] bool IsBlankAddress(TextView address);

/// Whether a page is worth keeping: blank pages and the home page are not.
[[nodiscard]] bool IsWorthKeeping(TextView address);

} // namespace tessa
