// A group's file is changed where it lies: its keys, comments and other sections stay.
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "groups/TessaGroups.h"

#include <algorithm>
#include <set>
#include <span>

namespace tessa {

namespace {

constexpr std::string_view kUpdatedSection = "TessaGroup";
constexpr std::size_t kKeysRead = 16384; // of more keys, a group does not know
constexpr std::size_t kLargestUpdated = std::size_t{8} << 20;

/// A key of the section and its address.
struct UpdatedEntry {
    std::string key;
    Text address;
};

class UpdatedFile {
public:
    explicit UpdatedFile(std::string_view bytes) : m_file(bytes), m_entries(Entries()) {
        std::set<Text> names;
        for (const UpdatedEntry& each : m_entries) names.insert(InSmallLetters(FromBytes(each.key)));
        // Of keys with one name only the first can be written.
        if (names.size() < m_entries.size()) RemoveAll();
    }

    /// What is not to be changed is out of the way.
    void SetAside(const std::vector<Text>& addresses) {
        for (const Text& each : addresses) {
            const auto found = std::ranges::find(m_entries, each, &UpdatedEntry::address);
            if (found != m_entries.end()) m_entries.erase(found);
        }
    }
    void Rename(const Text& from, const Text& to) {
        const auto found = std::ranges::find(m_entries, from, &UpdatedEntry::address);
        if (found != m_entries.end()) Put(*found, to);
    }
    void RemoveOthers(const std::vector<Text>& addresses) {
        std::multiset<Text> wanted(addresses.begin(), addresses.end());
        std::erase_if(m_entries, [&](const UpdatedEntry& each) {
            const auto found = wanted.find(each.address);
            if (found != wanted.end()) return wanted.erase(found), false;
            m_file.RemoveKey(kUpdatedSection, each.key);
            return true;
        });
    }
    /// What is there stays where it stands when it opens in that order; else each address has the next key.
    void Arrange(const std::vector<Text>& addresses) {
        std::vector<Text> there;
        for (const UpdatedEntry& each : m_entries) there.push_back(each.address);
        there = Plan().Ordered(there);
        const std::size_t had = m_entries.size();
        if (!std::ranges::equal(there, std::span(addresses).first(had))) {
            for (std::size_t i = 0; i < had; ++i) Put(m_entries[i], addresses[i]);
        }
        for (const Text& each : std::span(addresses).subspan(had)) Append(each);
    }
    /// All addresses in the order in which they open.
    [[nodiscard]] std::vector<Text> All() const {
        std::vector<Text> all;
        for (const UpdatedEntry& each : Entries()) all.push_back(each.address);
        return Plan().Ordered(all);
    }
    [[nodiscard]] GroupPlan Plan() const { return GroupPlan::Read(m_file); }
    void SetPlan(const GroupPlan& plan) {
        if (plan != Plan()) plan.Write(m_file);
    }
    [[nodiscard]] std::string Bytes() const { return m_file.Bytes(); }

private:
    [[nodiscard]] std::vector<UpdatedEntry> Entries() const {
        std::vector<UpdatedEntry> entries;
        for (const std::string& key : NamesIn(m_file.KeyList(kUpdatedSection, "", kKeysRead)))
            entries.push_back({key, ReadIniValue(m_file, kUpdatedSection, key, u"")});
        return entries;
    }
    void RemoveAll() {
        for (const UpdatedEntry& each : m_entries) m_file.RemoveKey(kUpdatedSection, each.key);
        m_entries.clear();
    }
    void Put(UpdatedEntry& entry, const Text& address) {
        if (entry.address == address) return;
        m_file.SetValue(kUpdatedSection, entry.key, ToUtf8(address));
        entry.address = address;
    }
    void Append(const Text& address) {
        std::string key;
        do key = "url" + std::to_string(++m_number);
        while (!m_file.Value(kUpdatedSection, key, "\x01", 3).starts_with('\x01'));
        m_file.SetValue(kUpdatedSection, key, ToUtf8(address));
    }

    IniFile m_file;
    std::vector<UpdatedEntry> m_entries;
    std::size_t m_number = 0;
};

} // namespace

namespace TessaGroups {

Outcome Update(TextView path, const Updated& group, const ChangesPlan& change) {
    const std::string file = PathToBytes(path);
    const auto before = ReadWholeFile(file, kLargestUpdated + 1);
    if (group.Addresses.empty() || (!before && FileExists(file))) return Outcome::Failed;
    if (before && before->size() > kLargestUpdated) return Outcome::Failed;
    UpdatedFile updated(before.value_or(std::string()));
    updated.SetAside(group.Kept);
    GroupPlan plan = updated.Plan();
    for (const auto& [from, to] : group.Renamed) {
        updated.Rename(from, to);
        plan.Copy(from, to);
    }
    updated.RemoveOthers(group.Addresses);
    std::vector<Text> all = group.Addresses;
    all.insert(all.end(), group.Kept.begin(), group.Kept.end());
    plan = plan.Of(all);
    updated.SetPlan(plan);
    updated.Arrange(group.Addresses);
    if (change) change(plan, updated.All());
    updated.SetPlan(plan);
    return WriteWholeFile(file, updated.Bytes());
}

} // namespace TessaGroups

} // namespace tessa
