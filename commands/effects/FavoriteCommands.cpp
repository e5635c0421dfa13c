#include "commands/effects/FavoriteCommands.h"

#include "base/Address.h"
#include "base/LinkTrust.h"
#include "favorites/FavoriteRepair.h"
#include "groups/TessaGroups.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kManyTabs = 30;
constexpr std::size_t kShownAddress = 300;

constexpr TextView kNoPages = u"There are no pages in that folder.";

/// A group that is made of a folder is called like it.
Text SuggestedName(TextView folder) {
    return Favorites::FileNameOf(folder.substr(folder.rfind(u'/') + 1)) + Text(TessaGroups::kExtension);
}

} // namespace

/// The pages in a folder that may open without a question, and how many other shortcuts it has.
struct FavoriteCommands::WebPages {
    explicit WebPages(TextView folder) { Take(Favorites::Items(folder)); }
    WebPages() = default;

    void Take(const std::vector<Favorites::Item>& items) {
        for (const Favorites::Item& item : items) {
            if (item.IsFolder) continue;
            const bool opens = !item.Address.empty() && TrustOf(item.Address, LinkSource::Folder) == LinkTrust::Open;
            if (opens)
                addresses.push_back(item.Address);
            else
                ++left;
        }
    }

    std::vector<Text> addresses;
    std::size_t left = 0;
};

FavoriteCommands::FavoriteCommands(CommandContext& context, Outside outside)
    : m_context(context), m_outside(std::move(outside)) {
    m_context.favorites = this;
}

bool FavoriteCommands::AddFavorite(TextView address, TextView title) {
    if (!Favorites::CanKeep(m_context.favoritesFolder)) return false;
    frmAddFavorite form(m_context.favoritesFolder, Address::WithoutUser(address), title);
    m_outside.forms.Show(form);
    if (!form.Told.empty()) m_context.tabs.Say(form.Told);
    return true;
}

void FavoriteCommands::RepairFavorites() {
    const Text done = Favorites::WordsOf(Favorites::Repair(m_context.favoritesFolder));
    m_context.favoritesMenuStale = true;
    m_context.tabs.Say(done);
}

void FavoriteCommands::OrganizeFavorites() {
    frmOrganizeFavorites form(m_context.favoritesFolder,
                              {.messages = m_context.messages,
                               .trash = m_outside.trash,
                               .OpenAll = [this](TextView folder) { OpenAll(folder); },
                               .SaveAsGroup = [this](TextView folder) { return SaveAsGroup(folder); }});
    m_outside.forms.Show(form);
}

bool FavoriteCommands::MayOpenLink(TextView address) {
    const LinkTrust trust = TrustOf(address, LinkSource::Favorite);
    if (trust == LinkTrust::Never)
        m_context.tabs.Say(u"This Favorite is a script, or leads into the program. It was not opened.");
    if (trust != LinkTrust::Ask) return trust == LinkTrust::Open;
    return m_context.messages.AskOwn({u"This Favorite does not lead to the web but to",
                                      Text(address.substr(0, kShownAddress)), u"&Cancel", u"&Open It"});
}

void FavoriteCommands::OpenAll(TextView folder) { OpenPages(WebPages(folder)); }

void FavoriteCommands::OpenAllBelow(TextView folder) {
    WebPages pages;
    Favorites::ForEachFolder(folder, [&pages](const std::vector<Favorites::Item>& items) { pages.Take(items); });
    OpenPages(pages);
}

void FavoriteCommands::OpenPages(const WebPages& pages) {
    const auto& [addresses, left] = pages;
    const auto count = static_cast<std::int64_t>(addresses.size());
    if (addresses.size() > kManyTabs &&
        !m_context.messages.AskOwn({u"Open " + Decimal(count) + u" tabs?", {}, u"&Cancel", u"&Open Them All"}))
        return;
    m_context.groups.OpenInTabs(addresses);
    if (addresses.empty() && left == 0) m_context.tabs.Say(kNoPages);
    if (left > 0) m_context.tabs.Say(u"Favorites that do not lead to the web were not opened.");
}

Text FavoriteCommands::SaveAsGroup(TextView folder) {
    // The pages of a group open without a question.
    const auto [addresses, left] = WebPages(folder);
    if (addresses.empty()) return left == 0 ? Text(kNoPages) : u"No Favorite in that folder leads to the web.";
    Text path = m_context.files.ShowSave({.DialogTitle = u"Save as TessaGroup",
                                          .InitDir = m_context.groupFolder,
                                          .Filter = Text(TessaGroups::kFileFilter),
                                          .FileName = SuggestedName(folder)});
    if (path.empty()) return {};
    if (!path.ends_with(TessaGroups::kExtension)) path += TessaGroups::kExtension;
    using TessaGroups::Saved;
    const Saved saved = TessaGroups::Save(path, addresses, m_context.messages);
    if (saved == Saved::Declined) return {};
    m_context.groupsMenuStale = m_context.groupsMenuStale || saved == Saved::Yes;
    if (saved != Saved::Yes) return u"The TessaGroup could not be saved.";
    return left == 0 ? u"The TessaGroup has been saved."
                     : u"The TessaGroup has been saved, without the Favorites that do not lead to the web.";
}

} // namespace tessa
