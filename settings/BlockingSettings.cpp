#include "settings/BlockingSettings.h"

#include "base/Address.h"
#include "base/ResumeNext.h"
#include "blocking/RuleText.h"

#include <algorithm>

namespace tessa {

BlockingSettings::BlockingSettings(SettingsStorageFactory& factory)
    : m_storage(factory.Open()),
      On(*m_storage, u"BlockingOn", false),
      Asked(*m_storage, u"BlockingAsked", false),
      Lists(*m_storage, u"BlockingLists"),
      OffSites(*m_storage, u"BlockingOffSites") {}

BlockingValues BlockingSettings::Get() const {
    return {.on = On.Get(),
            .asked = Asked.Get(),
            .lists = Lists.Get(),
            .offSites = OffSites.Get(),
            .listsChosen = Lists.HasValue()};
}

void BlockingSettings::Set(const BlockingValues& values) {
    ResumeNext(On.Set(values.on));
    ResumeNext(Asked.Set(values.asked));
    if (values.listsChosen) ResumeNext(Lists.Set(values.lists));
    ResumeNext(OffSites.Set(values.offSites));
}

std::vector<Text> BlockingSettings::Differences() const { return DifferencesOf(On, Asked, Lists, OffSites); }

Text OffSiteOf(TextView typed) {
    const TextView trimmed = Address::Trimmed(typed);
    const TextView host = Address::HostIn(trimmed);
    TextView name = host.empty() ? trimmed.substr(0, trimmed.find_first_of(u"/?#")) : host;
    const std::string domain = ruletext::DomainOf(ToUtf8(name));
    return domain.ends_with('*') ? Text() : FromBytes(domain);
}

bool IsOffSite(const std::vector<Text>& offSites, TextView address) {
    if (offSites.empty()) return false;
    const Text host = OffSiteOf(Address::HostIn(address));
    return !host.empty() && std::ranges::any_of(offSites, [&](const Text& each) {
        return !each.empty() && host.ends_with(each) &&
               (host.size() == each.size() || host[host.size() - each.size() - 1] == u'.');
    });
}

} // namespace tessa
