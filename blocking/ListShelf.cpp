#include "blocking/ListShelf.h"

#include "base/Records.h"
#include "base/ResumeNext.h"
#include "base/os/AtomicFile.h"
#include "base/os/Folder.h"
#include "blocking/ListCatalogue.h"
#include "blocking/RuleText.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

constexpr TextView kListRecord = u"List";
// Of so many lines at the beginning, at least one has to be a rule.
constexpr int kLookedAtLines = 2000;
constexpr std::size_t kMostOwnRules = std::size_t{4} << 20;

std::int64_t NumberIn(const Record& record, TextView field) { return record.FindNumber(field).value_or(0); }

Text TextOf(const Record& record, TextView field) {
    const Text* text = record.FindText(field);
    return text ? *text : Text();
}

bool IsDue(const ShelvedList& list, std::int64_t now) {
    // A clock that was set back would else keep it for years.
    if (list.Tried > now) return true;
    const std::int64_t failures = std::min<std::int64_t>(list.Failures, 30);
    const std::int64_t wait = failures > 0
                                  ? std::min(ListShelf::kTryAgainAfter << (failures - 1), ListShelf::kRenewAfter)
                                  : ListShelf::kRenewAfter;
    return list.Tried == 0 || now - list.Tried >= wait;
}

} // namespace

bool LooksLikeList(std::string_view bytes) {
    const std::string start = ruletext::InSmall(ruletext::Trimmed(bytes.substr(0, 512)));
    if (start.starts_with("<") || start.starts_with("{") || bytes.substr(0, 4096).find('\0') != std::string_view::npos)
        return false;
    ListLines lines(bytes);
    std::string_view line;
    for (int seen = 0; seen < kLookedAtLines && lines.Next(line); ++seen) {
        const LineKind kind = ReadRuleLine(line).Kind;
        if (kind != LineKind::Nothing && kind != LineKind::Unknown) return true;
    }
    return false;
}

ListShelf::ListShelf(std::string folder) : m_folder(std::move(folder)) { ReadRecords(); }

void ListShelf::ReadRecords() {
    for (const Record& each : ParseRecords(ReadWholeFile(m_folder + "/lists").value_or(std::string()))) {
        ShelvedList list{TextOf(each, u"Address"),   TextOf(each, u"Tag"),     TextOf(each, u"Modified"),
                         NumberIn(each, u"Fetched"), NumberIn(each, u"Tried"), NumberIn(each, u"Failures")};
        if (each.Name == kListRecord && !list.Address.empty()) m_lists[list.Address] = std::move(list);
    }
}

Outcome ListShelf::WriteRecords() const {
    std::vector<Record> records;
    for (const auto& [address, each] : m_lists) {
        records.push_back({Text(kListRecord),
                           {{u"Address", each.Address},
                            {u"Tag", each.Tag},
                            {u"Modified", each.Modified},
                            {u"Fetched", Decimal(each.Fetched)},
                            {u"Tried", Decimal(each.Tried)},
                            {u"Failures", Decimal(each.Failures)}}});
    }
    MakeFolders(m_folder);
    return WriteWholeFile(m_folder + "/lists", RecordBytes(records));
}

ShelvedList ListShelf::Find(TextView address) const {
    const auto found = m_lists.find(address);
    ShelvedList list = found == m_lists.end() ? ShelvedList() : found->second;
    list.Address = address;
    // Whoever has removed the file gets it whole again.
    if (!FileExists(PathOf(address))) list.Tag = list.Modified = Text(), list.Fetched = 0;
    return list;
}

std::vector<ShelvedList> ListShelf::Due(const std::vector<Text>& addresses, std::int64_t now) const {
    std::vector<ShelvedList> due;
    for (const Text& each : addresses) {
        const ShelvedList list = Find(each);
        if (IsDue(list, now) || (list.Fetched == 0 && list.Failures == 0)) due.push_back(list);
    }
    return due;
}

Outcome ListShelf::Keep(const ShelvedList& list, std::string_view bytes) {
    MakeFolders(m_folder);
    if (WriteWholeFile(PathOf(list.Address), bytes) == Outcome::Failed) return Outcome::Failed;
    m_lists[list.Address] = list;
    return WriteRecords();
}

void ListShelf::NoteSame(TextView address, std::int64_t now) {
    ShelvedList list = Find(address);
    list.Tried = list.Fetched = now;
    list.Failures = 0;
    m_lists[Text(address)] = list;
    ResumeNext(WriteRecords());
}

void ListShelf::NoteFailure(TextView address, std::int64_t now) {
    ShelvedList list = Find(address);
    list.Tried = now;
    ++list.Failures;
    m_lists[Text(address)] = list;
    ResumeNext(WriteRecords());
}

std::string ListShelf::PathOf(TextView address) const {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string name;
    for (std::uint64_t hash = ruletext::HashOf(ToUtf8(address)), at = 0; at < 16; ++at, hash >>= 4U)
        name += kDigits[hash & 15U];
    return m_folder + "/" + name + ".txt";
}

Text ListShelf::OwnRules() const {
    return FromBytes(ReadWholeFile(OwnRulesPath(), kMostOwnRules).value_or(std::string()));
}

Outcome ListShelf::KeepOwnRules(TextView rules) {
    MakeFolders(m_folder);
    return WriteWholeFile(OwnRulesPath(), ToUtf8(rules));
}

std::vector<ListSource> ListShelf::SourcesOf(const std::vector<Text>& chosen) const {
    std::vector<ListSource> sources;
    for (const Text& each : chosen) {
        const Text source = ListCatalogue::SourceOf(each);
        sources.push_back({ListCatalogue::IsFetched(source) ? PathOf(source) : PathToBytes(source), {}});
    }
    sources.push_back({{}, ToUtf8(OwnRules())});
    return sources;
}

} // namespace tessa
