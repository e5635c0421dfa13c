#include "base/LinkTrust.h"

#include "base/Address.h"
#include "base/Schemes.h"

#include <algorithm>
#include <array>
#include <span>

namespace tessa {

namespace {

struct TrustRow {
    SchemeKind kind;
    LinkTrust group, favorite, folder, session, handOver;
};

// Of this computer's files, what was open before and what the program is started with are the user's own choice.
constexpr auto kOpen = LinkTrust::Open, kAsk = LinkTrust::Ask, kNever = LinkTrust::Never;
constexpr std::array kTrustTable{
    //               kind  group  favorite  folder  session  handOver
    TrustRow{SchemeKind::Web, kOpen, kOpen, kOpen, kOpen, kOpen},
    TrustRow{SchemeKind::Computer, kAsk, kAsk, kAsk, kOpen, kOpen},
    TrustRow{SchemeKind::Mail, kNever, kOpen, kNever, kNever, kOpen},
    TrustRow{SchemeKind::Own, kOpen, kAsk, kAsk, kOpen, kOpen},
    // A page that is its own address has no origin and reaches nothing. In a group it is like a page of the web.
    TrustRow{SchemeKind::Document, kOpen, kAsk, kAsk, kOpen, kOpen},
    TrustRow{SchemeKind::OfPage, kAsk, kAsk, kAsk, kOpen, kOpen},
    TrustRow{SchemeKind::Other, kAsk, kAsk, kAsk, kOpen, kOpen},
    // What is in none of these rows never opens.
};

constexpr TextView kShowsSource = u"view-source:";

Text BareAddress(TextView address) {
    Text bare = InSmallLetters(Address::Trimmed(address));
    std::erase_if(bare, [](char16_t unit) { return unit < 0x20; });
    return bare;
}

bool IsSchemeUnit(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'+' || unit == u'-' ||
           unit == u'.';
}

bool LooksLikePath(TextView text) {
    return text.starts_with(u'/') || text.starts_with(u'\\') || text.starts_with(u'~') || text.starts_with(u'.');
}

SchemeKind KindOfLink(TextView address) {
    const Text bare = BareAddress(address);
    TextView rest = bare;
    while (rest.starts_with(kShowsSource)) rest = Address::Trimmed(rest.substr(kShowsSource.size()));
    if (LooksLikePath(rest)) return SchemeKind::Computer;
    const std::size_t colon = rest.find_first_of(u":/?#");
    const TextView scheme = rest.substr(0, colon);
    if (colon == TextView::npos || scheme.empty() || rest[colon] != u':') return SchemeKind::Web;
    // Whoever opens it may know a blank, or a letter, that is none here.
    const bool foreign = std::ranges::any_of(scheme, [](char16_t unit) { return unit > 0x7F; });
    if (foreign) return Address::BeginsWithPort(rest.substr(colon + 1)) ? SchemeKind::Web : SchemeKind::Other;
    if (!std::ranges::all_of(scheme, IsSchemeUnit)) return SchemeKind::Web;
    // Others of that scheme reach into the engine.
    if (rest.substr(0, rest.find_first_of(u"?#")) == Address::kBlank) return SchemeKind::Web;
    const SchemeKind kind = KindOfScheme(scheme);
    return kind == SchemeKind::Other && Address::BeginsWithPort(rest.substr(colon + 1)) ? SchemeKind::Web : kind;
}

} // namespace

LinkTrust TrustOf(TextView address, LinkSource source) {
    const SchemeKind kind = KindOfLink(address);
    const auto* row = std::ranges::find(kTrustTable, kind, &TrustRow::kind);
    if (row == kTrustTable.end()) return LinkTrust::Never;
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

} // namespace tessa
