#include "groups/GroupCheck.h"

#include "base/ini/IniFile.h"
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "groups/GroupPlan.h"
#include "groups/TessaGroups.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::string_view kMendedSection = "TessaGroup";
constexpr std::size_t kMostMended = std::size_t{8} << 20;

class GroupFile final : public MendedGroup {
public:
    explicit GroupFile(Text path) : m_path(std::move(path)) {}
    [[nodiscard]] const Text& File() const override { return m_path; }
    [[nodiscard]] std::vector<Text> Addresses() const override {
        std::vector<Text> addresses;
        for (const auto& each : TessaGroups::Load(m_path)) addresses.push_back(each.Key);
        return addresses;
    }
    [[nodiscard]] TakeBack Change(const std::map<Text, Text>& changes) override {
        auto before = GroupMending::Change(m_path, changes);
        if (!before) return {};
        return [path = m_path, before = std::move(*before)] { return GroupMending::Undo(path, before); };
    }

private:
    Text m_path;
};

std::vector<std::string> KeysIn(const IniFile& file) { return NamesIn(file.KeyList(kMendedSection, "", kMostMended)); }

std::vector<Text> OpenedOf(const IniFile& file, const GroupPlan& plan) {
    std::vector<Text> addresses;
    for (const std::string& key : KeysIn(file)) addresses.push_back(ReadIniValue(file, kMendedSection, key, u""));
    return plan.Ordered(addresses);
}

// A file without a plan gets none. `opened` are the addresses from before, in the order in which they opened.
void MovePlan(IniFile& file, const std::map<Text, Text>& changes, std::vector<Text> opened) {
    GroupPlan plan = GroupPlan::Read(file);
    for (const auto& [from, to] : changes) {
        if (!to.empty()) plan.Copy(from, to);
        plan.Set(from, {});
    }
    // What was removed is found nowhere.
    for (Text& each : opened) {
        const auto change = changes.find(each);
        if (change != changes.end()) each = change->second.empty() ? Text(1, u'\0') : change->second;
    }
    plan.MovePanes(opened, OpenedOf(file, plan));
    if (plan != GroupPlan::Read(file)) plan.Write(file);
}

} // namespace

GroupCheck::GroupCheck(AddressProbe& probe, const std::vector<Text>& addresses) : m_probe(probe) {
    std::set<Text> seen;
    for (const Text& each : addresses) {
        if (seen.insert(each).second) m_trails.emplace_back(each);
    }
}

void GroupCheck::Start() {
    for (std::size_t at = 0; at < m_trails.size(); ++at) {
        if (m_trails[at].Next().empty())
            ++m_known;
        else
            m_waiting.push_back(at);
    }
    AskOn();
    if (Done()) Progress();
}

void GroupCheck::AskOn() {
    for (std::size_t place = 0; place < m_waiting.size() && m_asked.size() < kMostHosts && !m_stopped;) {
        const std::size_t at = m_waiting[place];
        const Text host = HostOfWeb(m_trails[at].Next());
        if (m_asked.contains(host)) {
            ++place;
            continue;
        }
        m_waiting.erase(m_waiting.begin() + static_cast<std::ptrdiff_t>(place));
        Ask(at, host);
    }
}

void GroupCheck::Ask(std::size_t at, const Text& host) {
    m_asked.insert(host);
    m_probe.Ask(m_trails[at].Next(), [this, at, host](const ProbeAnswer& answer) { Take(at, host, answer); });
}

// A redirect waits for its host as everybody does, but comes first.
void GroupCheck::Take(std::size_t at, const Text& host, const ProbeAnswer& answer) {
    if (m_stopped) return;
    m_asked.erase(host);
    m_trails[at].Take(answer);
    const bool known = m_trails[at].Next().empty();
    if (known)
        ++m_known;
    else
        m_waiting.insert(m_waiting.begin(), at);
    AskOn();
    if (known) Progress();
}

void GroupCheck::Stop() {
    if (Done()) return;
    m_stopped = true;
    m_probe.StopAll();
    Progress();
}

std::vector<HealthLine> GroupCheck::Lines() const {
    std::vector<HealthLine> lines;
    for (const HealthTrail& each : m_trails) {
        lines.push_back(each.Line());
        if (!each.Next().empty()) lines.back().moved.clear();
    }
    return lines;
}

std::shared_ptr<MendedGroup> MendedFile(Text path) { return std::make_shared<GroupFile>(std::move(path)); }

namespace GroupMending {

std::optional<Before> Change(TextView path, const std::map<Text, Text>& changes) {
    const std::string name = PathToBytes(path);
    const auto bytes = ReadWholeFile(name, kMostMended + 1);
    if (!bytes || bytes->size() > kMostMended) return std::nullopt;
    IniFile file(*bytes);
    const std::vector<Text> opened = OpenedOf(file, GroupPlan::Read(file));
    for (const std::string& key : KeysIn(file)) {
        const auto change = changes.find(ReadIniValue(file, kMendedSection, key, u""));
        if (change == changes.end()) continue;
        if (change->second.empty())
            file.RemoveKey(kMendedSection, key);
        else
            file.SetValue(kMendedSection, key, ToUtf8(change->second));
    }
    MovePlan(file, changes, opened);
    Before before{*bytes, file.Bytes()};
    if (before.after != before.bytes && WriteWholeFile(name, before.after) != Outcome::Done) return std::nullopt;
    return before;
}

Outcome Undo(TextView path, const Before& before) {
    const std::string name = PathToBytes(path);
    if (ReadWholeFile(name, kMostMended + 1) != before.after) return Outcome::Failed;
    return WriteWholeFile(name, before.bytes);
}

} // namespace GroupMending

} // namespace tessa
