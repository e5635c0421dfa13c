#pragma once
#include "bar/CommandBar.h"
#include "base/CKeyValues.h"
#include "base/ini/IniFile.h"
#include "groups/GroupPlan.h"
#include "platform/Dialogs.h"
#include "tabs/ViewArray.h"

#include <functional>
#include <utility>
#include <vector>

namespace tessa {

class TabStrip;

/// TessaGroup files: INI text whose section "TessaGroup" names one address a key. A group is known by the full path of
/// its file; its name is the file's without ".tvg".
namespace TessaGroups {

/// What the name of a group's file ends with.
inline constexpr TextView kExtension = u".tvg";
/// For a file dialog that asks for a group.
inline constexpr TextView kFileFilter = u"TessaGroup File (*.tvg)|*.tvg";

using tessa::ReadIniValue;

/// The addresses of a group file in the order of its keys, whatever the keys are; empty ones stay. Empty when the
/// file or its section cannot be read. Keys beyond 16382 bytes of names are left out, and so is everything after a
/// file's first 8 MiB.
[[nodiscard]] CStrings Load(TextView path);
/// Whether the file is there and can be read, whatever is in it.
[[nodiscard]] bool IsReadable(TextView path);

/// What an entry of a group file to be written is called: "url" and this number.
struct NumberedAddress {
    std::size_t number;
    Text address;
};

/// Replaces the whole file by one with these addresses, as they stand. A file with a section "TessaView" keeps that,
/// and all that belongs to others. No addresses leave no file. A write that fails leaves the file as it was.
Outcome Write(TextView path, const std::vector<NumberedAddress>& addresses);
/// The same, and how they open from now on.
Outcome Write(TextView path, const std::vector<NumberedAddress>& addresses, const GroupPlan& plan);

/// Writes each address under "url" and the number after the count of the group's addresses. Deliberately the count, not
/// the highest number: in a group with gaps it takes the place of another. A missing file is made, and all are written
/// at once.
Outcome Append(TextView path, const std::vector<Text>& addresses);

/// What a group's file is to say.
struct Updated {
    std::vector<Text> Addresses{};                ///< in the order in which they open
    std::vector<std::pair<Text, Text>> Renamed{}; ///< what takes the place of an address, and opens as that did
    std::vector<Text> Kept{};                     ///< addresses that stay as they are
};

/// Has the file say that. Whatever else stands in it stays, and so do keys whose addresses stay. `change` may change
/// how the group opens, and is told in which order. A missing file is made; one that cannot be read, or is too large,
/// stays as it is.
using ChangesPlan = std::function<void(GroupPlan& plan, const std::vector<Text>& all)>;
Outcome Update(TextView path, const Updated& group, const ChangesPlan& change = {});

/// Asks whether to write down what is open in private tabs.
[[nodiscard]] Answer AskOfPrivate(MessageBoxes& messages);

/// `Nothing`: there were no addresses to save, and the file is as it was.
enum class Saved { Yes, Declined, Failed, Nothing };

/// Whether a group of that path may be written: asks when there is one already.
[[nodiscard]] bool MayReplace(TextView path, MessageBoxes& messages);

/// Saves addresses as the group of that path, numbered from 1. Asks before it replaces a group that exists.
Saved Save(TextView path, const std::vector<Text>& addresses, MessageBoxes& messages);

/// Saves the addresses of all tabs in the order of the strip as the group of that path. Asks before it replaces
/// a group that exists, and whether to write down what is open in private tabs.
Saved SaveOpenTabs(TextView path, const TabStrip& pcPage, ViewArray& Browser, MessageBoxes& messages);

/// The groups of a folder (with the separator at the end) by name, with their full paths. Of a folder that cannot be
/// read none; hidden files are left out.
[[nodiscard]] CKeyValues List(TextView folder);

/// The names of these.
[[nodiscard]] std::vector<Text> Names(TextView folder);

/// Deletes a group's file for good.
Outcome Delete(TextView path);

/// Adds an entry for each group of the folder to a band, behind what it has. The caller keeps `nextId` for the whole
/// run, 0 before the first use. The description is the file's full path.
void FillBand(Band& band, TextView folder, const Picture& TessaGroupsPicture, std::int32_t& nextId);

} // namespace TessaGroups

} // namespace tessa
