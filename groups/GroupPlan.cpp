#include "groups/GroupPlan.h"

#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "tiles/TileText.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace tessa {

namespace {

constexpr std::string_view kPlanSection = "TessaView";
constexpr std::string_view kPage = "page";
constexpr TextView kSize = u"size";
constexpr int kSizes = 5;
// An address has no more; the list of keys holds far more pages than a group has.
constexpr std::size_t kLongestPage = std::size_t{64} << 10, kPlanKeys = std::size_t{1} << 20;
constexpr std::size_t kLargestPlanFile = std::size_t{8} << 20;

bool IsPageKey(std::string_view key) {
    return key.size() > kPage.size() && InSmallLetters(FromBytes(key.substr(0, kPage.size()))) == u"page" &&
           std::all_of(key.begin() + kPage.size(), key.end(), [](char each) { return each >= '0' && each <= '9'; });
}

std::vector<std::string> PageKeys(const IniFile& file) {
    std::vector<std::string> keys = NamesIn(file.KeyList(kPlanSection, "", kPlanKeys));
    std::erase_if(keys, [](const std::string& each) { return !IsPageKey(each); });
    return keys;
}

void SetOrRemove(IniFile& file, std::string_view key, const std::string& value) {
    if (!value.empty())
        file.SetValue(kPlanSection, key, value);
    else
        file.RemoveKey(kPlanSection, key);
}

constexpr TextView kNoPanes = u"none";

/// As the file has it; empty where panes are not kept.
std::string PanesValue(const GroupPlan& plan) {
    if (!plan.keepsPanes) return {};
    Text value;
    for (const Text& each : plan.panes) value += (value.empty() ? u"" : u"; ") + each;
    return ToUtf8(value.empty() ? Text(kNoPanes) : value);
}

void ReadPanes(const IniFile& file, GroupPlan& plan) {
    const Text value = FromBytes(file.Value(kPlanSection, "panes", "", kLongestPage));
    std::size_t begin = 0;
    for (std::size_t end = 0; end != Text::npos; begin = end + 1) {
        end = value.find(u';', begin);
        const auto layout = TileLayoutIn(TextView(value).substr(begin, end == Text::npos ? end : end - begin));
        if (layout) plan.panes.push_back(TileText(*layout));
    }
    plan.keepsPanes = !plan.panes.empty() || value == kNoPanes;
}

/// What a page's key says; nothing when it cannot be understood.
std::optional<std::pair<Text, PagePlan>> PageAt(const IniFile& file, const std::string& key) {
    const Text value = FromBytes(file.Value(kPlanSection, key, "", kLongestPage));
    const std::size_t blank = value.find(u' ');
    if (blank == Text::npos) return std::nullopt;
    const PagePlan plan = PlanIn(TextView(value).substr(0, blank));
    return plan == PagePlan() ? std::nullopt : std::optional(std::pair(value.substr(blank + 1), plan));
}

/// Takes out the pages that open otherwise now. Those whose lines can stay are taken out of `pages`. Answers with the
/// keys that are in use.
std::set<Text> KeepPages(IniFile& file, std::map<Text, PagePlan>& pages) {
    std::set<Text> taken;
    for (const std::string& key : PageKeys(file)) {
        const auto page = PageAt(file, key);
        const auto wanted = page ? pages.find(page->first) : pages.end();
        const bool same = wanted != pages.end() && wanted->second == page->second;
        if (same) pages.erase(wanted);
        if (page && !same)
            file.RemoveKey(kPlanSection, key);
        else
            taken.insert(InSmallLetters(FromBytes(key)));
    }
    return taken;
}

template<typename Take>
void ForEachWord(TextView words, Take take) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(u','), words.size());
        take(words.substr(0, end));
        words.remove_prefix(std::min(end + 1, words.size()));
    }
}

} // namespace

Text WordsOf(const PagePlan& plan) {
    Text words;
    const auto add = [&words](TextView word) { words += (words.empty() ? u"" : u",") + Text(word); };
    if (plan.place == PagePlan::Place::First) add(u"first");
    if (plan.place == PagePlan::Place::Last) add(u"last");
    if (plan.asleep) add(u"asleep");
    if (plan.muted) add(u"muted");
    if (plan.textSize) add(Text(kSize) + Decimal(*plan.textSize));
    return words;
}

PagePlan PlanIn(TextView words) {
    PagePlan plan;
    ForEachWord(words, [&plan](TextView word) {
        if (word == u"first") plan.place = PagePlan::Place::First;
        if (word == u"last") plan.place = PagePlan::Place::Last;
        if (word == u"asleep") plan.asleep = true;
        if (word == u"muted") plan.muted = true;
        const auto size = word.starts_with(kSize) ? WholeNumber(word.substr(kSize.size())) : std::nullopt;
        if (size && *size >= 0 && *size < kSizes) plan.textSize = *size;
    });
    return plan;
}

PagePlan GroupPlan::For(const Text& address) const {
    const auto found = pages.find(address);
    return found == pages.end() ? PagePlan() : found->second;
}

void GroupPlan::Set(const Text& address, const PagePlan& plan) {
    if (plan == PagePlan())
        pages.erase(address);
    else
        pages[address] = plan;
}

void GroupPlan::Copy(const Text& from, const Text& to) {
    if (!pages.contains(to)) Set(to, For(from));
}

GroupPlan GroupPlan::Of(const std::vector<Text>& addresses) const {
    GroupPlan plan = *this;
    const std::set<Text> kept(addresses.begin(), addresses.end());
    std::erase_if(plan.pages, [&kept](const auto& page) { return !kept.contains(page.first); });
    return plan;
}

void GroupPlan::MovePanes(const std::vector<Text>& before, const std::vector<Text>& after) {
    std::vector<std::int32_t> become(before.size(), 0);
    std::multimap<Text, std::int32_t> places;
    for (std::size_t i = 0; i < after.size(); ++i) places.emplace(after[i], static_cast<std::int32_t>(i + 1));
    for (std::size_t i = 0; i < before.size(); ++i) {
        const auto place = places.find(before[i]);
        if (place == places.end()) continue;
        become[i] = place->second;
        places.erase(place);
    }
    // What has come in the place of an address lies where that did.
    for (const auto& [address, number] : places) {
        const auto place = static_cast<std::size_t>(number) - 1;
        if (before.size() == after.size() && become[place] == 0) become[place] = number;
    }
    panes = TileTextsBecome(panes, [&become](std::int32_t number) {
        const auto place = static_cast<std::size_t>(number) - 1;
        return place < become.size() ? become[place] : 0;
    });
}

std::vector<Text> GroupPlan::Ordered(const std::vector<Text>& addresses) const {
    std::vector<Text> ordered = addresses;
    const auto rank = [this](const Text& address) {
        constexpr std::array kRanks{1, 0, 2}; // in the order of the places
        return kRanks.at(static_cast<std::size_t>(For(address).place));
    };
    std::ranges::stable_sort(ordered, {}, rank);
    return ordered;
}

GroupPlan GroupPlan::Read(const IniFile& file) {
    GroupPlan plan;
    const Text colour = InSmallLetters(ReadIniValue(file, kPlanSection, "colour", u""));
    if (ColourNamed(colour) != TabColour::None) plan.colour = colour;
    plan.behind = ReadIniValue(file, kPlanSection, "behind", u"") == u"1";
    plan.closeOthers = ReadIniValue(file, kPlanSection, "closeothers", u"") == u"1";
    ReadPanes(file, plan);
    for (const std::string& key : PageKeys(file)) {
        if (auto page = PageAt(file, key)) plan.pages.insert(std::move(*page));
    }
    return plan;
}

bool GroupPlan::HasSection(const IniFile& file) {
    return std::ranges::any_of(NamesIn(file.SectionList(kPlanKeys)),
                               [](const std::string& each) { return InSmallLetters(FromBytes(each)) == u"tessaview"; });
}

GroupPlan GroupPlan::In(TextView path) {
    return Read(IniFile(ReadWholeFile(PathToBytes(path), kLargestPlanFile).value_or(std::string())));
}

void GroupPlan::Write(IniFile& file) const {
    const GroupPlan before = Read(file);
    if (colour != before.colour) SetOrRemove(file, "colour", ToUtf8(colour));
    if (behind != before.behind) SetOrRemove(file, "behind", behind ? "1" : "");
    if (keepsPanes != before.keepsPanes || panes != before.panes) SetOrRemove(file, "panes", PanesValue(*this));
    if (closeOthers != before.closeOthers) SetOrRemove(file, "closeothers", closeOthers ? "1" : "");
    std::map<Text, PagePlan> left = pages;
    const std::set<Text> taken = KeepPages(file, left);
    std::size_t number = 1;
    for (const auto& [address, page] : left) {
        if (page == PagePlan()) continue;
        while (taken.contains(FromBytes(kPage) + Decimal(static_cast<std::int64_t>(number)))) ++number;
        const std::string key = std::string(kPage) + std::to_string(number++);
        file.SetValue(kPlanSection, key, ToUtf8(WordsOf(page) + u" " + address));
    }
}

} // namespace tessa
