#include "base/Schemes.h"

#include "base/OwnAddresses.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

struct SchemeRow {
    TextView scheme;
    SchemeKind kind;
};

// What is in none of these rows is for another program.
constexpr std::array kSchemeTable{
    SchemeRow{u"http", SchemeKind::Web},
    SchemeRow{u"https", SchemeKind::Web},
    SchemeRow{u"file", SchemeKind::Computer},
    SchemeRow{u"mailto", SchemeKind::Mail},
    SchemeRow{OwnAddresses::kScheme, SchemeKind::Own},
    SchemeRow{u"data", SchemeKind::Document},
    SchemeRow{u"blob", SchemeKind::OfPage},
    SchemeRow{u"filesystem", SchemeKind::OfPage},
    SchemeRow{u"ws", SchemeKind::OfPage},
    SchemeRow{u"wss", SchemeKind::OfPage},
    SchemeRow{u"about", SchemeKind::About},
    SchemeRow{u"view-source", SchemeKind::Source},
    SchemeRow{u"javascript", SchemeKind::Script},
    SchemeRow{u"vbscript", SchemeKind::OldScript},
    SchemeRow{u"livescript", SchemeKind::OldScript},
    SchemeRow{u"mocha", SchemeKind::OldScript},
    SchemeRow{u"chrome", SchemeKind::Engine},
    SchemeRow{u"chrome-untrusted", SchemeKind::Engine},
    SchemeRow{u"devtools", SchemeKind::Engine},
    SchemeRow{u"qrc", SchemeKind::Engine},
    SchemeRow{u"chrome-error", SchemeKind::Inner},
    SchemeRow{u"chrome-devtools", SchemeKind::Inner},
    SchemeRow{u"tessaview-ask", SchemeKind::Inner},
    SchemeRow{u"tessaview-hide", SchemeKind::Inner},
    SchemeRow{u"tessaview-empty", SchemeKind::Inner},
};

} // namespace

SchemeKind KindOfScheme(TextView scheme) {
    const auto* row = std::ranges::find(kSchemeTable, scheme, &SchemeRow::scheme);
    return row == kSchemeTable.end() ? SchemeKind::Other : row->kind;
}

} // namespace tessa
