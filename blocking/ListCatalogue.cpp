#include "blocking/ListCatalogue.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr TextView kAdvertisements = u"Advertisements on pages in this language.";

constexpr std::array<KnownList, 19> kKnownLists{{
    {u"EasyList", u"Advertisements on pages in English and on most others.", u"",
     u"https://easylist.to/easylist/easylist.txt"},
    {u"EasyPrivacy", u"What follows people from site to site.", u"", u"https://easylist.to/easylist/easyprivacy.txt"},
    {u"Peter Lowe's list", u"Servers of advertisements and trackers, as a short list of hosts.", u"",
     u"https://pgl.yoyo.org/adservers/serverlist.php?hostformat=hosts&showintro=0&mimetype=plaintext"},
    {u"EasyList Cookie List", u"Notices about cookies. Some pages do not go on without an answer.", u"",
     u"https://secure.fanboy.co.nz/fanboy-cookiemonster.txt"},
    {u"Fanboy's Annoyances", u"Notices, pop-ups inside pages, and buttons of social networks.", u"",
     u"https://secure.fanboy.co.nz/fanboy-annoyance.txt"},
    {u"EasyList Germany", kAdvertisements, u"de", u"https://easylist.to/easylistgermany/easylistgermany.txt"},
    {u"Liste FR", kAdvertisements, u"fr", u"https://easylist-downloads.adblockplus.org/liste_fr.txt"},
    {u"EasyList Spanish", kAdvertisements, u"es", u"https://easylist-downloads.adblockplus.org/easylistspanish.txt"},
    {u"EasyList Portuguese", kAdvertisements, u"pt",
     u"https://easylist-downloads.adblockplus.org/easylistportuguese.txt"},
    {u"EasyList Italy", kAdvertisements, u"it", u"https://easylist-downloads.adblockplus.org/easylistitaly.txt"},
    {u"EasyList Dutch", kAdvertisements, u"nl", u"https://easylist-downloads.adblockplus.org/easylistdutch.txt"},
    {u"EasyList Polish", kAdvertisements, u"pl", u"https://easylist-downloads.adblockplus.org/easylistpolish.txt"},
    {u"EasyList Czech and Slovak", kAdvertisements, u"cs sk",
     u"https://raw.githubusercontent.com/tomasko126/easylistczechandslovak/master/filters.txt"},
    {u"RU AdList", kAdvertisements, u"ru uk be kk", u"https://easylist-downloads.adblockplus.org/advblock.txt"},
    {u"Bulgarian list", kAdvertisements, u"bg", u"https://stanev.org/abp/adblock_bg.txt"},
    {u"EasyList Hebrew", kAdvertisements, u"he",
     u"https://raw.githubusercontent.com/easylist/EasyListHebrew/master/EasyListHebrew.txt"},
    {u"Liste AR", kAdvertisements, u"ar", u"https://easylist-downloads.adblockplus.org/Liste_AR.txt"},
    {u"EasyList China", kAdvertisements, u"zh", u"https://easylist-downloads.adblockplus.org/easylistchina.txt"},
    {u"ABPindo", kAdvertisements, u"id ms", u"https://easylist-downloads.adblockplus.org/abpindo.txt"},
}};

constexpr std::size_t kChosenByDesign = 2; ///< of those for all languages

bool IsFor(TextView languages, TextView language) {
    const Text wanted = u" " + InSmallLetters(language.substr(0, language.find_first_of(u"-_"))) + u" ";
    return (u" " + Text(languages) + u" ").find(wanted) != Text::npos;
}

bool IsPath(TextView text) {
    const bool hasDrive = text.size() > 2 && text[1] == u':' && (text[2] == u'\\' || text[2] == u'/');
    return text.starts_with(u'/') || hasDrive;
}

} // namespace

namespace ListCatalogue {

std::span<const KnownList> All() { return kKnownLists; }

const KnownList* Find(TextView name) {
    const auto found = std::ranges::find(kKnownLists, name, &KnownList::Name);
    return found == kKnownLists.end() ? nullptr : &*found;
}

std::vector<Text> ByDesign(const std::vector<Text>& languages) {
    std::vector<Text> names;
    for (std::size_t at = 0; at < kKnownLists.size(); ++at) {
        const KnownList& each = kKnownLists.at(at);
        const bool forAny =
            std::ranges::any_of(languages, [&](const Text& language) { return IsFor(each.Languages, language); });
        if (at < kChosenByDesign || (!each.Languages.empty() && forAny)) names.emplace_back(each.Name);
    }
    return names;
}

Text SourceOf(TextView chosen) {
    const KnownList* known = Find(chosen);
    return Text(known ? known->Address : chosen);
}

bool IsFetched(TextView source) { return source.starts_with(u"https://"); }

bool CanBeList(TextView text) {
    const bool blank = std::ranges::any_of(text, [](char16_t each) { return each < u' '; });
    const TextView host = IsFetched(text) ? text.substr(8) : TextView();
    return !blank && (IsPath(text) || (!host.empty() && host.front() != u'/' && host.find(u' ') == TextView::npos));
}

} // namespace ListCatalogue

} // namespace tessa
