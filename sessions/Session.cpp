#include "sessions/Session.h"

#include "base/Address.h"
#include "base/Captions.h"
#include "base/OwnAddresses.h"
#include "base/PlainText.h"

namespace {

constexpr std::string_view kHeader = "TessaView session 1";
constexpr std::string_view kTime = "time=", kEnded = "ended=", kSettled = "settled=", kSelected = "selected=",
                           kBlanks = "blanks=";
constexpr std::string_view kPage = "page=";

std::int64_t Number(std::string_view digits) {
    std::int64_t number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9' || number > INT64_MAX / 100) break;
        number = number * 10 + (digit - '0');
    }
    return number;
}

SessionPage PageOf(std::string_view line) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) return {FromBytes(line), {}};
    return {FromBytes(line.substr(0, tab)), FromBytes(line.substr(tab + 1))};
}

void Read(Session& session, std::string_view line) {
    const auto value = [&](std::string_view name) -> std::optional<std::string_view> {
        if (!line.starts_with(name)) return std::nullopt;
        return line.substr(name.size());
    };
    if (const auto time = value(kTime)) session.Time = Number(*time);
    if (const auto ended = value(kEnded)) session.Ended = *ended == "1";
    if (const auto settled = value(kSettled)) session.Settled = *settled == "1";
    if (const auto selected = value(kSelected)) session.Selected = static_cast<std::size_t>(Number(*selected));
    if (const auto blanks = value(kBlanks)) session.Blanks = static_cast<std::size_t>(Number(*blanks));
    if (const auto page = value(kPage)) session.Pages.push_back(PageOf(*page));
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
    std::string bytes(kHeader);
    const auto add = [&](std::string_view name, const std::string& value) {
        bytes += '\n';
        bytes += name;
        bytes += value;
    };
    add(kTime, std::to_string(session.Time));
    add(kEnded, session.Ended ? "1" : "0");
    add(kSettled, session.Settled ? "1" : "0");
    add(kSelected, std::to_string(session.Selected));
    if (session.Blanks > 0) add(kBlanks, std::to_string(session.Blanks));
    for (const SessionPage& page : session.Pages)
        add(kPage, WithoutControls(ToUtf8(page.Address)) + '\t' + WithoutControls(ToUtf8(page.Title)));
    return bytes + '\n';
}

std::optional<Session> SessionFromBytes(std::string_view bytes) {
    Session session;
    bool first = true;
    for (auto end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
        const std::string_view line = bytes.substr(0, end);
        if (first && line != kHeader) return std::nullopt;
        if (!first) Read(session, line);
        first = false;
        bytes.remove_prefix(end + 1);
    }
    if (first) return std::nullopt;
    if (session.Selected > session.Pages.size()) session.Selected = 0;
    return session;
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
