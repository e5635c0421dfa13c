#include "pages/DecidedSites.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr TextView kThisRun = u" (until TessaView is closed)";

Text May(bool allowed) { return allowed ? u" may " : u" may not "; }

void AddPermissions(std::vector<SiteChoice>& all, SitePermissions& permissions) {
    auto decisions = permissions.All();
    std::ranges::stable_sort(decisions, {}, &SiteDecision::Site);
    for (const SiteDecision& each : decisions) {
        all.push_back({each.Site + May(each.Allowed) + SitePermissions::Wish(each.Permission),
                       [&permissions, each] { permissions.Forget(each.Site, each.Permission); }});
    }
}

void AddPrograms(std::vector<SiteChoice>& all, ExternalSchemes& programs) {
    for (const auto& each : programs.All()) {
        // What the user typed is no site's.
        const Text who = each.Site.empty() ? Text(u"What you type") : each.Site;
        all.push_back({who + May(each.Opens) + u"open \"" + each.Scheme + u":\" with another program" + Text(kThisRun),
                       [&programs, each] { programs.Forget(each.Scheme, each.Site); }});
    }
}

} // namespace

SiteChoices DecidedSites(SitePermissions& permissions, ExternalSchemes& programs) {
    return {.All =
                [&] {
                    std::vector<SiteChoice> all;
                    AddPermissions(all, permissions);
                    AddPrograms(all, programs);
                    return all;
                },
            .RevokeAll =
                [&] {
                    permissions.ForgetAll();
                    programs.ForgetAll();
                }};
}

} // namespace tessa
