#include "startpage/HistoryPage.h"

#include "base/Base64.h"
#include "base/Html.h"
#include "base/PlainText.h"
#include "history/Passages.h"
#include "history/Snippets.h"
#include "startpage/HistoryPageStyle.h"
#include "startpage/StartPageStyle.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kLongestTitle = 200, kLongestAddress = 160, kSnippet = 220, kSnippets = 2;

constexpr std::string_view kClock =
    R"(<svg viewBox="0 0 64 64" aria-hidden="true"><circle cx="32" cy="32" r="28" fill="#2668b9"/>)"
    R"(<path d="M32 14v19l13 8" fill="none" stroke="#fff" stroke-width="5" stroke-linecap="round"/></svg>)";

std::string HistoryEscaped(TextView text) { return HtmlEscaped(WithoutControls(ToUtf8(text))); }

std::string Marked(const Snippet& snippet) {
    std::string html;
    for (const SnippetPart& each : snippet)
        html += each.Marked ? "<mark>" + HistoryEscaped(each.Words) + "</mark>" : HistoryEscaped(each.Words);
    return html;
}

std::string MarkedLine(const std::vector<SearchText::Piece>& pieces, TextView text, std::size_t most) {
    return "<bdi>" + Marked(Snippets::Of(pieces, PlainLine(text, 4 * most), most)) + "</bdi>";
}

// "Today, 14:30" in two: the day, and what stands behind its last comma.
struct DayAndTime {
    Text day, time;
};

DayAndTime DayOf(std::int64_t seconds, const WallClock& clock) {
    const Text words = clock.Words(seconds);
    const std::size_t comma = words.rfind(u", ");
    if (comma == Text::npos) return {words, {}};
    return {words.substr(0, comma), words.substr(comma + 2)};
}

std::string IconOf(const HistoryEntry& entry) {
    if (!entry.Icon.empty()) return "<img alt=\"\" src=\"data:image/png;base64," + Base64(entry.Icon) + "\">";
    unsigned sum = 0;
    for (const char16_t each : entry.Site) sum = sum * 31 + each;
    const Text name = PlainLine(entry.Site, kLongestTitle);
    const TextView letter =
        name.empty() ? TextView(u"?") : FirstUnits(name, name.size() > 1 && IsHighSurrogate(name[0]) ? 2 : 1);
    return "<i class=\"t" + std::to_string(sum % 8) + "\" aria-hidden=\"true\">" + HistoryEscaped(letter) + "</i>";
}

std::string AboutOf(const HistoryEntry& entry, const std::vector<SearchText::Piece>& pieces) {
    std::string about = "<div class=\"about\"><button data-site=\"" + HistoryEscaped(entry.Site) +
                        "\" title=\"Show this site only\">" + MarkedLine({}, entry.Site, kLongestAddress) +
                        "</button> &middot; ";
    about += MarkedLine(pieces, entry.Address, kLongestAddress);
    if (entry.Visits > 1) about += " &middot; " + std::to_string(entry.Visits) + " visits";
    if (!entry.Group.empty()) about += " &middot; " + MarkedLine({}, entry.Group, kLongestTitle);
    if (entry.Share.value_or(0) > 0)
        about += " &middot; <span class=\"new\">" + std::to_string(*entry.Share) + " % was new</span>";
    return about + "</div>";
}

std::string RowOf(const HistoryEntry& entry, const std::vector<SearchText::Piece>& pieces, TextView time) {
    const Text title = entry.Title.empty() ? entry.Address : entry.Title;
    const std::string shown = MarkedLine(pieces, title, kLongestTitle);
    std::string row = "<li data-id=\"" + std::to_string(entry.Id) +
                      "\"><input type=\"checkbox\" tabindex=\"-1\" aria-label=\"Select " +
                      HistoryEscaped(PlainLine(title, kLongestTitle)) + "\">" + IconOf(entry) + "<a href=\"" +
                      HistoryEscaped(entry.Address) + "\"><b>" + shown + "</b></a><time>" + HistoryEscaped(time) +
                      "</time>" + AboutOf(entry, pieces);
    if (!pieces.empty())
        for (const FoundPassage& each :
             Snippets::Best(pieces, Passages::FromBytes(entry.Passages), entry.Title, kSnippets, kSnippet))
            row += "<p><bdi>" + Marked(each.Shown) + "</bdi></p>";
    return row + "</li>";
}

std::string HeadingOf(const HistoryEntry& entry, TextView day, const WallClock& clock) {
    // A day may have 23 or 25 hours.
    constexpr std::int64_t kIntoTheNext = 36 * 3600;
    const std::int64_t from = clock.DayBegin(entry.Last);
    const std::int64_t until = clock.DayBegin(from + kIntoTheNext);
    return "<h2>" + HistoryEscaped(day) + " <button class=\"quiet\" data-from=\"" + std::to_string(from) +
           "\" data-until=\"" + std::to_string(until) + "\">Delete this day</button></h2><ol aria-label=\"" +
           HistoryEscaped(day) + "\">";
}

Text CountWords(const HistoryRequest& request, const HistoryFound& found) {
    if (request.Below > 0) return found.More ? u"More pages are shown." : u"All pages are shown.";
    if (found.Entries.empty()) return request.Words.empty() ? u"Nothing is remembered here." : u"Nothing was found.";
    const Text number = Decimal(static_cast<std::int64_t>(found.Entries.size()));
    if (found.More) return u"The latest " + number + u" pages";
    return found.Entries.size() == 1 ? Text(u"One page") : number + u" pages";
}

constexpr std::string_view kBody =
    "<form id=\"search\" role=\"search\"><input id=\"words\" type=\"search\" placeholder=\"Search titles, addresses "
    "and text\" "
    "aria-label=\"Words to search for in what you have read\" aria-controls=\"list\" autocomplete=\"off\" "
    "autofocus></form>\n"
    "<div class=\"tools\"><p id=\"count\" role=\"status\"></p>"
    "<select id=\"group\" aria-label=\"TessaGroup\" hidden><option value=\"\">All TessaGroups</option></select>"
    "<div id=\"site\" class=\"actions\" hidden><button id=\"all-sites\" title=\"Show all sites again\">"
    "<span></span> &times;</button><button id=\"delete-site\">Delete this site...</button></div>"
    "<div class=\"actions\" role=\"toolbar\" aria-label=\"Selected pages\">"
    "<button id=\"open\" disabled>Open</button><button id=\"keep\" disabled>Keep as TessaGroup...</button>"
    "<button id=\"delete\" disabled>Delete</button></div></div>\n"
    "<div id=\"list\" aria-label=\"Pages\"></div>\n<button id=\"more\" hidden>Show more</button>\n";

} // namespace

namespace HistoryPage {

std::string Html(bool dark) {
    std::string page = "<!doctype html><html lang=\"en\"";
    if (dark) page += " class=\"dark\"";
    page += "><head><meta charset=\"utf-8\"><title>History</title><meta http-equiv=\"Content-Security-Policy\" "
            "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\"><style>";
    page += kStartPageStyle;
    page += kHistoryPageStyle;
    page += "</style></head><body><main>\n<header>";
    page += kClock;
    page += "<h1>History</h1></header>\n";
    page += kBody;
    return page + "</main></body></html>\n";
}

Text Answer(const HistoryRequest& request, const HistoryFound& found, const WallClock& clock) {
    const auto pieces = SearchText::PiecesOf(request.Words);
    std::string html;
    Text day;
    for (const HistoryEntry& each : found.Entries) {
        const DayAndTime when = DayOf(each.Last, clock);
        if (html.empty() || when.day != day) html += (html.empty() ? "" : "</ol>\n") + HeadingOf(each, when.day, clock);
        day = when.day;
        html += RowOf(each, pieces, when.time) + "\n";
    }
    if (!html.empty()) html += "</ol>";
    const std::int64_t below = found.Entries.empty() ? 0 : found.Entries.back().Id;
    return u"list " + Decimal(request.Number) + (request.Below > 0 ? u" 1" : u" 0") + (found.More ? u" 1 " : u" 0 ") +
           Decimal(below) + u"\n" + CountWords(request, found) + u"\n" + FromBytes(html);
}

Text GroupsAnswer(const std::vector<Text>& groups) {
    Text answer = u"groups";
    for (const Text& each : groups) answer += u"\n" + PlainLine(each, kLongestTitle);
    return answer;
}

} // namespace HistoryPage

} // namespace tessa
