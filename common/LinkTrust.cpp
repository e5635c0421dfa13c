#include "common/LinkTrust.h"

#include "common/Address.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

enum class LinkKind { Web, Computer, Mail, Own, Document, Other, Forbidden };

struct TrustRow {
    LinkKind kind;
    LinkTrust group, favorite, folder, session, handOver;
};

// Of this computer's files, what was open before and what the program is started with are the user's own choice.
constexpr auto kOpen = LinkTrust::Open, kAsk = LinkTrust::Ask, kNever = LinkTrust::Never;
constexpr std::array kTrustTable{
    //               kind  group  favorite  folder  session  handOver
    TrustRow{LinkKind::Web, kOpen, kOpen, kOpen, kOpen, kOpen},
    TrustRow{LinkKind::Computer, kAsk, kAsk, kAsk, kOpen, kOpen},
    TrustRow{LinkKind::Mail, kNever, kOpen, kNever, kNever, kOpen},
    TrustRow{LinkKind::Own, kOpen, kAsk, kAsk, kOpen, kOpen},
    // A page that is its own address is of nobody, and reaches nothing: in a group it is like one of the web.
    TrustRow{LinkKind::Document, kOpen, kAsk, kAsk, kOpen, kOpen},
    TrustRow{LinkKind::Other, kAsk, kAsk, kAsk, kOpen, kOpen},
    TrustRow{LinkKind::Forbidden, kNever, kNever, kNever, kNever, kNever},
};

struct SchemeRow {
    TextView scheme;
    LinkKind kind;
};

// What is in none of these rows is for another program.
constexpr std::array kSchemeTable{
    SchemeRow{u"http", LinkKind::Web},
    SchemeRow{u"https", LinkKind::Web},
    SchemeRow{u"ftp", LinkKind::Web},
    SchemeRow{u"file", LinkKind::Computer},
    SchemeRow{u"mailto", LinkKind::Mail},
    SchemeRow{u"tessaview", LinkKind::Own},
    SchemeRow{u"data", LinkKind::Document},
    SchemeRow{u"javascript", LinkKind::Forbidden},
    SchemeRow{u"vbscript", LinkKind::Forbidden},
    SchemeRow{u"livescript", LinkKind::Forbidden},
    SchemeRow{u"mocha", LinkKind::Forbidden},
    SchemeRow{u"chrome", LinkKind::Forbidden},
    SchemeRow{u"chrome-error", LinkKind::Forbidden},
    SchemeRow{u"chrome-untrusted", LinkKind::Forbidden},
    SchemeRow{u"chrome-devtools", LinkKind::Forbidden},
    SchemeRow{u"devtools", LinkKind::Forbidden},
    SchemeRow{u"qrc", LinkKind::Forbidden},
    SchemeRow{u"tessaview-ask", LinkKind::Forbidden},
};

constexpr TextView kShowsSource = u"view-source:";
constexpr TextView kAbout = u"about";

Text BareAddress(TextView address) {
    Text bare = Address::InSmallLetters(Address::Trimmed(address));
    std::erase_if(bare, [](char16_t unit) { return unit < 0x20; });
    return bare;
}

bool IsSchemeUnit(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'+' || unit == u'-' ||
           unit == u'.';
}

/// What follows the colon is a port, so what stands before it is a host.
bool IsPort(TextView rest) {
    const TextView digits = rest.substr(0, rest.find_first_of(u"/?#"));
    return !digits.empty() && digits.size() <= 5 &&
           std::ranges::all_of(digits, [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
}

bool LooksLikePath(TextView text) {
    return text.starts_with(u'/') || text.starts_with(u'\\') || text.starts_with(u'~') || text.starts_with(u'.');
}

LinkKind KindOfLink(TextView address) {
    const Text bare = BareAddress(address);
    TextView rest = bare;
    while (rest.starts_with(kShowsSource)) rest = Address::Trimmed(rest.substr(kShowsSource.size()));
    if (LooksLikePath(rest)) return LinkKind::Computer;
    const std::size_t colon = rest.find_first_of(u":/?#");
    const TextView scheme = rest.substr(0, colon);
    if (colon == TextView::npos || scheme.empty() || rest[colon] != u':') return LinkKind::Web;
    // Whoever opens it may know a blank, or a letter, that is none here.
    const bool foreign = std::ranges::any_of(scheme, [](char16_t unit) { return unit > 0x7F; });
    if (foreign) return IsPort(rest.substr(colon + 1)) ? LinkKind::Web : LinkKind::Other;
    if (!std::ranges::all_of(scheme, IsSchemeUnit)) return LinkKind::Web;
    // Others of that scheme reach into the engine.
    if (scheme == kAbout) {
        const TextView place = rest.substr(0, rest.find_first_of(u"?#"));
        return place == Address::kBlank ? LinkKind::Web : LinkKind::Forbidden;
    }
    const auto* row = std::ranges::find(kSchemeTable, scheme, &SchemeRow::scheme);
    if (row != kSchemeTable.end()) return row->kind;
    return IsPort(rest.substr(colon + 1)) ? LinkKind::Web : LinkKind::Other;
}

} // namespace

LinkTrust TrustOf(TextView address, LinkSource source) {
    const LinkKind kind = KindOfLink(address);
    const auto* row = std::ranges::find(kTrustTable, kind, &TrustRow::kind);
    switch (source) {
    case LinkSource::Group:
        return row->group;
    case LinkSource::Favorite:
        return row->favorite;
    case LinkSource::Folder:
        return row->folder;
    case LinkSource::Session:
        return row->session;
    case LinkSource::HandOver:
        return row->handOver;
    }
    return LinkTrust::Never;
}
