#include "startpage/StartPage.h"

#include "address/Endpoints.h"
#include "base/Html.h"
#include "base/OwnAddresses.h"
#include "base/Percent.h"
#include "base/PlainText.h"
#include "favorites/FavoriteFiles.h"
#include "groups/TessaGroups.h"
#include "startpage/StartPageStyle.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kMostGroups = 60, kMostFavorites = 60, kSitesOfACard = 4;
constexpr std::size_t kLongestName = 200;

// Nothing is loaded, nothing runs. The words to search for go to the program. The engine lets no page of the program's
// own be led from one host to another.
constexpr std::string_view kPolicy = "default-src 'none'; style-src 'unsafe-inline'; form-action ";

constexpr std::string_view kPicture =
    R"(<svg viewBox="0 0 64 64" aria-hidden="true"><rect x="3" y="3" width="58" height="58" rx="11" fill="#2668b9"/>)"
    R"(<path d="M12 17a4 4 0 0 1 4-4h9a4 4 0 0 1 4 4v1.500h2v12H12z" fill="#fff"/>)"
    R"(<path d="M34 18.500h14a4 4 0 0 1 4 4v8H34z" fill="#9fd0ff"/>)"
    R"(<path d="M12 33.500h13v17.500h-9a4 4 0 0 1-4-4z" fill="#6fb3f5"/>)"
    R"(<path d="M28 33.500h24v13.500a4 4 0 0 1-4 4H28z" fill="#ffb347"/></svg>)";

std::string Escaped(TextView text) { return HtmlEscaped(WithoutControls(ToUtf8(text))); }

// The part of an address that the user knows the site by.
Text SiteOf(TextView address) {
    const auto scheme = address.find(u"://");
    if (scheme == TextView::npos) return Text(address);
    TextView host = address.substr(scheme + 3);
    host = host.substr(0, host.find_first_of(u"/?#"));
    if (const auto user = host.rfind(u'@'); user != TextView::npos) host.remove_prefix(user + 1);
    if (host.starts_with(u"www.")) host.remove_prefix(4);
    return host.empty() ? Text(address) : Text(host);
}

// A coloured tile with the first letter; the same site always has the same colour.
std::string Tile(TextView site) {
    unsigned sum = 0;
    for (const char16_t each : site) sum = sum * 31 + each;
    const Text name = PlainLine(site, kLongestName);
    const std::size_t units = name.size() > 1 && IsHighSurrogate(name.front()) ? 2 : 1;
    const TextView letter = name.empty() ? TextView(u"?") : TextView(name).substr(0, units);
    return "<i class=\"t" + std::to_string(sum % 8) + "\" aria-hidden=\"true\">" + Escaped(letter) + "</i>";
}

// A name as people see it: nothing in it hides a part of it or turns the others around.
std::string Shown(TextView text) { return "<bdi>" + Escaped(PlainLine(text, kLongestName)) + "</bdi>"; }

std::string Isolated(TextView text) { return "<span>" + Shown(text) + "</span>"; }

std::string Count(std::size_t pages) { return pages == 1 ? "One page" : std::to_string(pages) + " pages"; }

// The same with the path, for pages of one site.
Text SiteWithPath(TextView address) {
    Text page = SiteOf(address);
    // Without a host it is the whole address already.
    if (page == address) return page;
    const auto path = address.find_first_of(u"/?#", address.find(u"://") + 3);
    if (path != TextView::npos) page += address.substr(path);
    if (page.ends_with(u'/')) page.pop_back();
    return page;
}

// Each page by its site alone where that is enough to tell it from the others.
std::string PageLines(const std::vector<Text>& addresses) {
    std::string lines;
    for (std::size_t i = 0; i < std::min(addresses.size(), kSitesOfACard); ++i) {
        const Text site = SiteOf(addresses[i]);
        const bool several =
            std::ranges::count_if(addresses, [&](const Text& each) { return SiteOf(each) == site; }) > 1;
        lines += "<div class=\"site\">" + Tile(site) + Isolated(several ? SiteWithPath(addresses[i]) : site) + "</div>";
    }
    const std::size_t left = addresses.size() - std::min(addresses.size(), kSitesOfACard);
    if (left > 0) lines += "<div class=\"site\"><small>and " + std::to_string(left) + " more</small></div>";
    return lines;
}

std::string NewsLine(TextView news) {
    return news.empty() ? std::string() : "<small class=\"news\">" + Escaped(news) + "</small>";
}

std::string Card(const StartGroup& group) {
    return "<a class=\"card\" href=\"" + ToUtf8(OwnAddresses::kOpenGroup) + PercentEncoded(PathToBytes(group.Name)) +
           "\"><b>" + Shown(group.Name) + "</b><small>" + Count(group.Addresses.size()) + "</small>" +
           NewsLine(group.News) + PageLines(group.Addresses) + "</a>\n";
}

std::string Groups(const StartContent& content) {
    std::string part = "<h2 id=\"groups\">TessaGroups</h2>\n";
    if (content.Groups.empty()) {
        return part + "<p class=\"hint\">There are no TessaGroups yet. Open some pages, then choose Save as TessaGroup "
                      "in the TessaGroups menu: one click here opens them all again.</p>\n";
    }
    part += "<div class=\"cards\">\n";
    for (const StartGroup& each : content.Groups) part += Card(each);
    part += "</div>\n";
    if (content.MoreGroups > 0)
        part += "<p class=\"more\">" + std::to_string(content.MoreGroups) + " more in the TessaGroups menu</p>\n";
    return part;
}

std::string Links(std::string_view heading, const std::vector<StartLink>& links) {
    if (links.empty()) return {};
    std::string part = "<h2>" + std::string(heading) + "</h2>\n<div class=\"links\">\n";
    for (const StartLink& each : links)
        part += "<a class=\"link\" href=\"" + Escaped(each.Address) + "\">" + Tile(each.Title) + Isolated(each.Title) +
                "</a>\n";
    return part + "</div>\n";
}

std::string NoticeOf(const StartContent& content) {
    return content.Notice.empty() ? std::string() : "<footer>" + Escaped(content.Notice) + "</footer>\n";
}

std::string BlockingQuestion(const StartContent& content) {
    if (!content.AsksAboutBlocking) return {};
    const std::string link = ToUtf8(OwnAddresses::kBlocking);
    return "<section class=\"ask\"><p>Shall TessaView block advertisements and trackers? "
           "It fetches lists of what to block.</p><a class=\"answer\" href=\"" +
           link + "yes\">Block Them</a> <a class=\"answer\" href=\"" + link + "no\">No, Thanks</a></section>\n";
}

std::string SearchForm() {
    return "<form action=\"" + ToUtf8(OwnAddresses::kSearchForm) +
           "\"><input name=\"words\" type=\"search\" placeholder=\"Search " + Escaped(Endpoints::kSearchServiceName) +
           "\" aria-label=\"Words to search for\" autocomplete=\"off\" autofocus required>"
           "<button>Search</button></form>\n";
}

// Another kind of address would run as this page, or reach what pages must not.
bool IsOfTheWeb(TextView address) { return address.starts_with(u"https://") || address.starts_with(u"http://"); }

} // namespace

namespace StartPage {

StartContent Read(TextView groupFolder, TextView favoritesFolder) {
    StartContent content;
    const CKeyValues groups = TessaGroups::List(groupFolder);
    for (const CKeyValue& each : groups) {
        if (content.Groups.size() == kMostGroups) break;
        StartGroup group{each.Key, {}};
        for (const CString& address : TessaGroups::Load(each.Value)) group.Addresses.push_back(address.Key);
        content.Groups.push_back(std::move(group));
    }
    content.MoreGroups = groups.Count() - content.Groups.size();
    for (const Favorites::Item& each : Favorites::Items(favoritesFolder)) {
        if (content.Favorites.size() == kMostFavorites) break;
        if (IsOfTheWeb(each.Address)) content.Favorites.push_back({each.Title, each.Address});
    }
    return content;
}

std::string Html(const StartContent& content) {
    std::string page = "<!doctype html><html lang=\"en\"";
    if (content.Dark) page += " class=\"dark\"";
    page += "><head><meta charset=\"utf-8\"><title>TessaView</title>"
            "<meta http-equiv=\"Content-Security-Policy\" content=\"";
    page += kPolicy;
    page += ToUtf8(OwnAddresses::kPrefix);
    page += "\"><style>";
    page += kStartPageStyle;
    page += "</style></head><body><main>\n<header>";
    page += kPicture;
    page += "<h1>TessaView</h1></header>\n";
    return page + SearchForm() + BlockingQuestion(content) + Groups(content) + Links("Favorites", content.Favorites) +
           Links("Sites you use most", content.Sites) + Links("Tabs closed last", content.Closed) + NoticeOf(content) +
           "</main></body></html>\n";
}

std::optional<Text> GroupOf(std::string_view link) {
    const std::string start = ToUtf8(OwnAddresses::kOpenGroup);
    if (!link.starts_with(start)) return std::nullopt;
    return PathFromBytes(PercentDecoded(link.substr(start.size())));
}

std::optional<bool> BlockingAnswerOf(std::string_view link) {
    const std::string start = ToUtf8(OwnAddresses::kBlocking);
    if (!link.starts_with(start)) return std::nullopt;
    link.remove_prefix(start.size());
    return link == "yes" ? std::optional(true) : link == "no" ? std::optional(false) : std::nullopt;
}

std::optional<Text> WordsOf(std::string_view link) {
    const std::string start = ToUtf8(OwnAddresses::kSearchWords);
    if (!link.starts_with(start)) return std::nullopt;
    std::string words(link.substr(start.size()));
    // So a form writes blanks.
    std::ranges::replace(words, '+', ' ');
    return FromUtf8(PercentDecoded(words));
}

} // namespace StartPage

} // namespace tessa
