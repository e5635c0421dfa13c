#include "groups/TessaGroups.h"

#include "base/Address.h"
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "forms/TabStrip.h"
#include "tabs/OpenTabs.h"

namespace tessa {

namespace {

constexpr std::string_view kSection = "TessaGroup";
constexpr std::size_t kKeyListSize = 16384;
/// Far more than a group can hold that is read whole.
constexpr std::size_t kLargestGroup = std::size_t{8} << 20;
constexpr TextView kOverwriteQuestion =
    u"A TessaGroup with this name already exists. Do you want to overwrite the existing TessaGroup?";

std::string KeyOf(std::size_t number) { return "url" + std::to_string(number); }

std::string GroupBytes(const std::vector<TessaGroups::NumberedAddress>& addresses) {
    std::string bytes = "[" + std::string(kSection) + "]\r\n";
    for (const auto& [number, address] : addresses) bytes += KeyOf(number) + "=" + ToUtf8(address) + "\r\n";
    return bytes;
}

std::vector<std::string> KeysOf(const IniFile& file, std::string_view section) {
    return NamesIn(file.KeyList(section, "", kLargestGroup));
}

std::vector<Text> AddressesIn(const IniFile& file) {
    std::vector<Text> addresses;
    for (const std::string& key : KeysOf(file, kSection)) addresses.push_back(ReadIniValue(file, kSection, key, u""));
    return addresses;
}

// A file that says how its group opens keeps that, and whatever else stands in it. Without a new plan the old one stays
// as it is written, also what of it cannot be understood; but panes are those of the same pages.
std::string BytesFor(const std::string& path, const std::vector<TessaGroups::NumberedAddress>& addresses,
                     const GroupPlan* plan) {
    IniFile file(ReadWholeFile(path, kLargestGroup + 1).value_or(std::string()));
    const bool isPlanned = GroupPlan::HasSection(file) || (plan && *plan != GroupPlan());
    if (file.Bytes().size() > kLargestGroup || !isPlanned) return GroupBytes(addresses);
    const GroupPlan before = GroupPlan::Read(file);
    const std::vector<Text> opened = before.Ordered(AddressesIn(file));
    for (const std::string& key : KeysOf(file, kSection)) file.RemoveKey(kSection, key);
    for (const auto& [number, address] : addresses) file.SetValue(kSection, KeyOf(number), ToUtf8(address));
    GroupPlan after = plan ? *plan : before;
    if (!plan) after.MovePanes(opened, before.Ordered(AddressesIn(file)));
    if (after != before) after.Write(file);
    return file.Bytes();
}

// A page may open before others, and the panes of these have other numbers then.
void AppendTo(IniFile& file, const std::vector<Text>& addresses) {
    GroupPlan plan = GroupPlan::Read(file);
    const std::vector<Text> panes = plan.panes, opened = plan.Ordered(AddressesIn(file));
    for (const Text& each : addresses) {
        const std::size_t count = NamesIn(file.KeyList(kSection, "", kKeyListSize)).size();
        file.SetValue(kSection, KeyOf(count + 1), ToUtf8(each));
    }
    if (panes.empty()) return;
    plan.MovePanes(opened, plan.Ordered(AddressesIn(file)));
    if (plan.panes != panes) plan.Write(file);
}

Outcome WriteOrRemove(TextView path, const std::vector<TessaGroups::NumberedAddress>& addresses,
                      const GroupPlan* plan) {
    const std::string file = PathToBytes(path);
    return addresses.empty() ? RemoveFile(file) : WriteWholeFile(file, BytesFor(file, addresses, plan));
}

// A folder of that name is nothing to overwrite; writing will fail.
bool HasGroup(TextView path) {
    const std::string file = PathToBytes(path);
    return FileExists(file) && !IsFolder(file);
}

std::vector<TessaGroups::NumberedAddress> OpenAddresses(const TabStrip& pcPage, ViewArray& Browser, bool withPrivate) {
    std::vector<TessaGroups::NumberedAddress> addresses;
    std::size_t left = 0;
    for (const OpenTab open : OpenTabs(pcPage, Browser)) {
        const Text address = open.Address();
        if ((open.Private() && !withPrivate) || !Address::ComesBack(address)) {
            ++left;
            continue;
        }
        // A tab whose view is gone leaves its number out.
        if (open.View) addresses.push_back({open.Position - left, address});
    }
    return addresses;
}

TessaGroups::Saved WriteAny(TextView path, const std::vector<TessaGroups::NumberedAddress>& addresses) {
    using TessaGroups::Saved;
    if (addresses.empty()) return Saved::Nothing;
    return TessaGroups::Write(path, addresses) == Outcome::Done ? Saved::Yes : Saved::Failed;
}

bool HasPrivate(const TabStrip& pcPage, ViewArray& Browser) {
    return std::ranges::any_of(OpenTabs(pcPage, Browser), [](const OpenTab& open) { return open.Private(); });
}

} // namespace

namespace TessaGroups {

CStrings Load(TextView path) {
    CStrings addresses;
    const IniFile file(ReadWholeFile(PathToBytes(path), kLargestGroup).value_or(std::string()));
    for (const std::string& key : NamesIn(file.KeyList(kSection, "", kKeyListSize)))
        addresses.Add(ReadIniValue(file, kSection, key, u""));
    return addresses;
}

bool IsReadable(TextView path) { return ReadWholeFile(PathToBytes(path), 0).has_value(); }

Outcome Write(TextView path, const std::vector<NumberedAddress>& addresses) {
    return WriteOrRemove(path, addresses, nullptr);
}

Outcome Write(TextView path, const std::vector<NumberedAddress>& addresses, const GroupPlan& plan) {
    return WriteOrRemove(path, addresses, &plan);
}

Outcome Append(TextView path, const std::vector<Text>& addresses) {
    const auto append = [&addresses](IniFile& file) { AppendTo(file, addresses); };
    return ChangeIniFile(PathToBytes(path), append) ? Outcome::Done : Outcome::Failed;
}

bool MayReplace(TextView path, MessageBoxes& messages) {
    return !HasGroup(path) || messages.AskYesNoCancel(kOverwriteQuestion) == Answer::Yes;
}

Saved Save(TextView path, const std::vector<Text>& addresses, MessageBoxes& messages) {
    if (!MayReplace(path, messages)) return Saved::Declined;
    std::vector<NumberedAddress> numbered;
    for (const Text& address : addresses) numbered.push_back({numbered.size() + 1, address});
    return WriteAny(path, numbered);
}

Answer AskOfPrivate(MessageBoxes& messages) {
    return messages.AskOwnOrCancel({u"Some of the tabs are private", u"The TessaGroup would keep their addresses.",
                                    u"&Leave Them Out", u"&Save Them Too"});
}

Saved SaveOpenTabs(TextView path, const TabStrip& pcPage, ViewArray& Browser, MessageBoxes& messages) {
    if (!MayReplace(path, messages)) return Saved::Declined;
    const Answer privates = HasPrivate(pcPage, Browser) ? AskOfPrivate(messages) : Answer::No;
    if (privates == Answer::Cancel) return Saved::Declined;
    return WriteAny(path, OpenAddresses(pcPage, Browser, privates == Answer::Yes));
}

} // namespace TessaGroups

} // namespace tessa
