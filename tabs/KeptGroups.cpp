#include "tabs/KeptGroups.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tessa {

namespace {

constexpr TextView kGroupRecord = u"Group", kPinsRecord = u"Pins";
constexpr TextView kPath = u"File", kName = u"Name", kColour = u"Colour", kChosen = u"Chosen", kFolded = u"Folded",
                   kTabs = u"Tabs", kEntries = u"Entries";
/// Stands before an address of the file: an empty one is an address too.
constexpr char16_t kIsEntry = u'=';

Text NumberText(std::int32_t number) { return Decimal(number); }

Record RecordOf(const KeptGroup& group) {
    Record record{.Name = Text(kGroupRecord), .Values = {}};
    const auto add = [&record](TextView field, FieldValue value) {
        record.Values.emplace(Text(field), std::move(value));
    };
    add(kPath, group.Path);
    add(kName, group.Name);
    if (!group.Colour.empty()) add(kColour, group.Colour);
    if (group.ColourChosen) add(kChosen, Text(u"1"));
    if (group.Folded) add(kFolded, Text(u"1"));
    std::vector<Text> tabs, entries;
    for (const KeptMember& each : group.Members) {
        tabs.push_back(NumberText(each.Number));
        entries.push_back(each.Entry ? kIsEntry + *each.Entry : Text());
    }
    add(kTabs, tabs);
    add(kEntries, entries);
    return record;
}

Text TextOr(const Record& record, TextView field) {
    const Text* text = record.FindText(field);
    return text ? *text : Text();
}

/// The numbers of pages that are there and that nothing else has taken, in place of the others 0.
std::vector<std::int32_t> TakeNumbers(const Record& record, std::size_t pages, std::set<std::int32_t>& taken) {
    std::vector<std::int32_t> numbers;
    for (const Text& each : ListIn(record.Values, kTabs).value_or(std::vector<Text>())) {
        const auto number = WholeNumber(each);
        const bool there = number && *number >= 1 && static_cast<std::uint64_t>(*number) <= pages;
        const bool isNew = there && taken.insert(static_cast<std::int32_t>(*number)).second;
        numbers.push_back(isNew ? static_cast<std::int32_t>(*number) : 0);
    }
    return numbers;
}

std::optional<KeptGroup> GroupOf(const Record& record, std::size_t pages, std::set<std::int32_t>& taken) {
    KeptGroup group{.Path = TextOr(record, kPath), .Name = TextOr(record, kName), .Colour = TextOr(record, kColour)};
    if (group.Path.empty()) return std::nullopt;
    if (std::ranges::find(kTabColours, TextView(group.Colour)) == std::end(kTabColours)) group.Colour.clear();
    group.ColourChosen = record.Says(kChosen) && !group.Colour.empty();
    group.Folded = record.Says(kFolded);
    const auto entries = ListIn(record.Values, kEntries).value_or(std::vector<Text>());
    const auto numbers = TakeNumbers(record, pages, taken);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] == 0) continue;
        const bool has = i < entries.size() && entries[i].starts_with(kIsEntry);
        group.Members.push_back({numbers[i], has ? std::optional(entries[i].substr(1)) : std::nullopt});
    }
    return group.Members.empty() ? std::nullopt : std::optional(std::move(group));
}

} // namespace

std::vector<Record> RecordsOf(const KeptGroups& kept) {
    std::vector<Record> records;
    for (const KeptGroup& each : kept.Groups) records.push_back(RecordOf(each));
    if (kept.Pins.empty()) return records;
    std::vector<Text> pins;
    for (const std::int32_t each : kept.Pins) pins.push_back(NumberText(each));
    records.push_back({.Name = Text(kPinsRecord), .Values = {{Text(kTabs), pins}}});
    return records;
}

KeptGroups KeptGroupsIn(const std::vector<Record>& records, std::size_t pages) {
    KeptGroups kept;
    std::set<std::int32_t> taken;
    for (const Record& each : records) {
        if (each.Name == kPinsRecord) std::ranges::copy(TakeNumbers(each, pages, taken), std::back_inserter(kept.Pins));
    }
    std::erase(kept.Pins, 0);
    for (const Record& each : records) {
        auto group = each.Name == kGroupRecord ? GroupOf(each, pages, taken) : std::nullopt;
        if (group) kept.Groups.push_back(*std::move(group));
    }
    return kept;
}

Text KeptGroupsText(const KeptGroups& kept) { return kept.Empty() ? Text() : FromBytes(RecordBytes(RecordsOf(kept))); }

KeptGroups KeptGroupsIn(TextView text, std::size_t pages) { return KeptGroupsIn(ParseRecords(ToUtf8(text)), pages); }

KeptGroups Renumbered(const KeptGroups& kept, const std::function<std::int32_t(std::int32_t)>& become) {
    KeptGroups all;
    for (KeptGroup group : kept.Groups) {
        for (KeptMember& each : group.Members) each.Number = become(each.Number);
        std::erase_if(group.Members, [](const KeptMember& each) { return each.Number == 0; });
        if (!group.Members.empty()) all.Groups.push_back(std::move(group));
    }
    for (const std::int32_t each : kept.Pins) all.Pins.push_back(become(each));
    std::erase(all.Pins, 0);
    return all;
}

} // namespace tessa
