#include "sessions/Session.h"

#include "base/Address.h"
#include "base/Captions.h"
#include "base/OwnAddresses.h"
#include "base/PlainText.h"
#include "base/Records.h"
#include "tiles/TileText.h"

#include <algorithm>
#include <set>

namespace tessa {

namespace {

constexpr TextView kSession = u"Session", kPage = u"Page";
constexpr TextView kTime = u"Time", kEnded = u"Ended", kSettled = u"Settled", kSelected = u"Selected",
                   kBlanks = u"Blanks", kTiles = u"Tiles";
constexpr TextView kAddress = u"Address", kTitle = u"Title", kName = u"Name";

Text CleanOf(TextView text) { return FromBytes(WithoutControls(ToUtf8(text))); }

Record RecordOf(const Session& session) {
    Record record{.Name = Text(kSession), .Values = {}};
    const auto add = [&](TextView field, Text value) { record.Values.emplace(field, std::move(value)); };
    add(kTime, Decimal(session.Time));
    add(kEnded, session.Ended ? u"1" : u"0");
    add(kSettled, session.Settled ? u"1" : u"0");
    add(kSelected, Decimal(static_cast<std::int64_t>(session.Selected)));
    if (session.Blanks > 0) add(kBlanks, Decimal(static_cast<std::int64_t>(session.Blanks)));
    if (!session.Tiles.empty()) record.Values.emplace(kTiles, session.Tiles);
    return record;
}

Record RecordOf(const SessionPage& page) {
    Record record{.Name = Text(kPage),
                  .Values = {{Text(kAddress), CleanOf(page.Address)}, {Text(kTitle), CleanOf(page.Title)}}};
    if (!page.Name.empty()) record.Values.emplace(kName, CleanOf(page.Name));
    return record;
}

// A number that is none, or below zero, is 0.
std::int64_t NumberOf(const Record& record, TextView field) {
    return std::max<std::int64_t>(record.FindNumber(field).value_or(0), 0);
}

Session SessionOf(const Record& record) {
    return {.Time = NumberOf(record, kTime),
            .Ended = record.Says(kEnded),
            .Settled = record.Says(kSettled),
            .Selected = static_cast<std::size_t>(NumberOf(record, kSelected)),
            .Blanks = static_cast<std::size_t>(NumberOf(record, kBlanks)),
            .Pages = {},
            .Groups = {},
            .Tiles = ListIn(record.Values, kTiles).value_or(std::vector<Text>())};
}

// A page whose title was lost is one still.
std::optional<SessionPage> PageOf(const Record& record) {
    const Text* address = record.FindText(kAddress);
    if (record.Name != kPage || !address) return std::nullopt;
    const Text* title = record.FindText(kTitle);
    const Text* name = record.FindText(kName);
    return SessionPage{*address, title ? *title : Text(), name ? *name : Text()};
}

std::optional<Session> FromRecords(const std::vector<Record>& records) {
    if (records.empty() || records.front().Name != kSession) return std::nullopt;
    Session session = SessionOf(records.front());
    for (const Record& record : records) {
        if (auto page = PageOf(record)) session.Pages.push_back(*std::move(page));
    }
    session.Groups = KeptGroupsIn(records, session.Pages.size());
    return session;
}

// Of pages that are there, each in one layout.
std::vector<Text> SoundTiles(const std::vector<Text>& tiles, std::size_t pages) {
    std::set<std::int32_t> seen;
    return TileTextsBecome(tiles, [&](std::int32_t number) {
        const bool there = static_cast<std::size_t>(number) <= pages;
        return there && seen.insert(number).second ? number : 0;
    });
}

// What the first versions wrote: a line of this text, then a line for each value and for each page.
constexpr std::string_view kFirstHeader = "TessaView session 1\n";

std::int64_t FirstNumber(std::string_view digits) {
    std::int64_t number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9' || number > INT64_MAX / 100) break;
        number = number * 10 + (digit - '0');
    }
    return number;
}

SessionPage FirstPage(std::string_view line) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) return {FromBytes(line), {}};
    return {FromBytes(line.substr(0, tab)), FromBytes(line.substr(tab + 1))};
}

void ReadFirst(Session& session, std::string_view line) {
    const auto value = [&](std::string_view name) -> std::optional<std::string_view> {
        if (!line.starts_with(name)) return std::nullopt;
        return line.substr(name.size());
    };
    if (const auto time = value("time=")) session.Time = FirstNumber(*time);
    if (const auto ended = value("ended=")) session.Ended = *ended == "1";
    if (const auto settled = value("settled=")) session.Settled = *settled == "1";
    if (const auto selected = value("selected=")) session.Selected = static_cast<std::size_t>(FirstNumber(*selected));
    if (const auto blanks = value("blanks=")) session.Blanks = static_cast<std::size_t>(FirstNumber(*blanks));
    if (const auto page = value("page=")) session.Pages.push_back(FirstPage(*page));
}

Session FromFirst(std::string_view lines) {
    Session session;
    for (auto end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n')) {
        ReadFirst(session, lines.substr(0, end));
        lines.remove_prefix(end + 1);
    }
    return session;
}

constexpr std::size_t kMostNamedPages = 3;
constexpr std::size_t kLongestNamedPage = 40; // units of a title

Text Counted(std::size_t count, TextView one, TextView many) {
    return count == 1 ? Text(one) : Decimal(static_cast<std::int64_t>(count)) + Text(many);
}

// A single page more is named rather than counted.
std::size_t CountNamed(std::size_t pages) { return pages <= kMostNamedPages + 1 ? pages : kMostNamedPages; }

Text PageName(const SessionPage& page) {
    const Text name = OneLine(page.Title.empty() ? page.Address : page.Title);
    const TextView shown = FirstUnits(name, kLongestNamedPage);
    return u"\u201c" + Text(shown) + (shown.size() < name.size() ? u"...\u201d" : u"\u201d");
}

} // namespace

std::string SessionBytes(const Session& session) {
    std::vector<Record> records{RecordOf(session)};
    for (const SessionPage& page : session.Pages) records.push_back(RecordOf(page));
    std::ranges::copy(RecordsOf(session.Groups), std::back_inserter(records));
    return RecordBytes(records);
}

std::optional<Session> SessionFromBytes(std::string_view bytes) {
    const std::string_view lines = WholeLines(bytes);
    std::optional<Session> session = lines.starts_with(kFirstHeader) ? FromFirst(lines.substr(kFirstHeader.size()))
                                                                     : FromRecords(ParseRecords(lines));
    if (session && session->Selected > session->Pages.size()) session->Selected = 0;
    if (session) session->Tiles = SoundTiles(session->Tiles, session->Pages.size());
    return session;
}

Session PartOf(const Session& session, const std::vector<std::size_t>& pages) {
    Session part = session;
    part.Selected = 0;
    part.Pages.clear();
    std::vector<std::int32_t> numbers(session.Pages.size(), 0);
    for (const std::size_t each : pages) {
        if (each >= session.Pages.size()) continue;
        part.Pages.push_back(session.Pages[each]);
        numbers[each] = static_cast<std::int32_t>(part.Pages.size());
        if (each + 1 == session.Selected) part.Selected = part.Pages.size();
    }
    const auto become = [&](std::int32_t number) {
        const auto place = static_cast<std::size_t>(number) - 1;
        return place < numbers.size() ? numbers[place] : 0;
    };
    part.Tiles = TileTextsBecome(session.Tiles, become);
    part.Groups = Renumbered(session.Groups, become);
    return part;
}

Text SessionWords(const Session& session, TextView when) {
    std::vector<Text> parts;
    const std::size_t named = CountNamed(session.Pages.size());
    for (std::size_t i = 0; i < named; ++i) parts.push_back(PageName(session.Pages[i]));
    if (named < session.Pages.size()) parts.push_back(Counted(session.Pages.size() - named, u"", u" more pages"));
    if (session.Blanks > 0) parts.push_back(Counted(session.Blanks, u"a blank tab", u" blank tabs"));
    Text words = when.empty() ? Text() : Text(when) + u": ";
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) words += i + 1 == parts.size() ? u" and " : u", ";
        words += parts[i];
    }
    return words;
}

bool IsBlankAddress(TextView address) { return address.empty() || address == Address::kBlank; }

bool IsWorthKeeping(TextView address) {
    return !IsBlankAddress(address) && !address.starts_with(OwnAddresses::kPrefix);
}

} // namespace tessa
