#pragma once
#include "base/Outcome.h"
#include "base/Text.h"
#include "base/ini/IniFile.h"
#include "forms/TabGroup.h"

#include <map>
#include <optional>
#include <vector>

namespace tessa {

/// How one page of a group opens.
struct PagePlan {
    enum class Place { AsListed, First, Last };
    Place place = Place::AsListed;
    bool asleep = false; ///< it loads when somebody looks
    bool muted = false;
    std::optional<int> textSize{}; ///< from 0 to 4, as `PageDocument::Zoom` has it

    bool operator==(const PagePlan&) const = default;
};

/// What the second section of a group's file, "TessaView", says: how the group opens. Its keys are "colour", "behind",
/// "closeothers", "panes" and "page1", "page2", ...; a page's value is words with commas between, a blank, and the
/// address as it stands in the section "TessaGroup". Whatever else stands in the file belongs to others.
struct GroupPlan {
    Text colour{};                  ///< one of `kTabColours`; empty for none
    bool behind = false;            ///< the tab in front stays so
    bool closeOthers = false;       ///< whatever the user's settings say
    bool keepsPanes = false;        ///< pages that lie side by side do so when the group opens again
    std::vector<Text> panes{};      ///< which do, see `TileText`; the first page that opens is 1
    std::map<Text, PagePlan> pages; ///< by address; those that open as ever are not among them

    /// How that address opens.
    [[nodiscard]] PagePlan For(const Text& address) const;
    void Set(const Text& address, const PagePlan& plan);
    /// Another address opens as that one did, unless it has a plan of its own.
    void Copy(const Text& from, const Text& to);
    /// The plan of these addresses alone.
    [[nodiscard]] GroupPlan Of(const std::vector<Text>& addresses) const;
    /// Puts the addresses into the order in which they open.
    [[nodiscard]] std::vector<Text> Ordered(const std::vector<Text>& addresses) const;

    /// The same pages, in another order or among others, lie side by side as before. Both lists are in the order in
    /// which they open.
    void MovePanes(const std::vector<Text>& before, const std::vector<Text>& after);

    /// What cannot be understood counts as never written.
    [[nodiscard]] static GroupPlan Read(const IniFile& file);
    /// Of the file of that path; of one that cannot be read nothing is planned.
    [[nodiscard]] static GroupPlan In(TextView path);
    /// Whether the file has that section, whatever is in it.
    [[nodiscard]] static bool HasSection(const IniFile& file);
    /// Writes into the file what differs from what it says. Keys of others stay, and what cannot be understood.
    void Write(IniFile& file) const;

    bool operator==(const GroupPlan&) const = default;
};

/// The words for one page, as the file and the editor have them: "first,asleep,muted,size4"; empty for none.
[[nodiscard]] Text WordsOf(const PagePlan& plan);
/// And back; words that are none are passed over.
[[nodiscard]] PagePlan PlanIn(TextView words);

} // namespace tessa
