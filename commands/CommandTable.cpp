#include "commands/CommandTable.h"

#include "commands/BookmarkCommands.h"
#include "commands/CollectionCommands.h"
#include "commands/MenuEntryCommands.h"
#include "commands/PageCommands.h"
#include "commands/PageMenu.h"
#include "commands/TabCommands.h"
#include "commands/TabMoreCommands.h"

#include <array>

namespace {

void ClearList(CommandContext& context, TextView box) {
    if (auto* combo = context.actBar.FindCombo(box)) combo->Clear();
}

void ClearAddresses(CommandContext& context) { ClearList(context, u"cboAddress"); }

void ClearSearches(CommandContext& context) { ClearList(context, u"cboSearch"); }

void StopAll(CommandContext& context) { context.groups.StopAll(); }

void ToggleStatusBar(CommandContext& context) { context.tabs.ToggleStatusBar(); }

/// Runs an operation of the host.
template<auto operation>
void Host(CommandContext& context) {
    (context.host.*operation)();
}

template<auto operation>
bool Has(const CommandHost& host) {
    return static_cast<bool>(host.*operation);
}

template<auto operation>
constexpr Command FromHost(TextView tool) {
    return {tool, Host<operation>, Has<operation>};
}

namespace Page = PageCommands;
namespace Tabs = TabCommands;
namespace TabMore = TabMoreCommands;
namespace Keep = CollectionCommands;
namespace MenuEntry = MenuEntryCommands;

const std::array kCommands{
    Command{u"mnuAddToTessaGroup", Keep::AddToTessaGroup, Has<&CommandHost::AddToTessaGroup>},
    Command{u"mnuCloseAll", Tabs::CloseAll},
    FromHost<&CommandHost::ShowHelp>(u"mnuHelp"),
    Command{u"mnuClearAddresses", ClearAddresses},
    Command{u"mnuClearSearches", ClearSearches},
    Command{u"mnuLoadImages", Page::ToggleLoadOption},
    Command{u"mnuLoadVideos", Page::ToggleLoadOption},
    Command{u"mnuLoadSounds", Page::ToggleLoadOption},
    Command{u"mnuLoadAnimations", Page::ToggleLoadOption},
    Command{u"mnuOrganizeTessaGroups", Keep::OrganizeTessaGroups, Has<&CommandHost::OrganizeTessaGroups>},
    Command{u"mnuFontLargest", Page::TextSize},
    Command{u"mnuFontLarger", Page::TextSize},
    Command{u"mnuFontMedium", Page::TextSize},
    Command{u"mnuFontSmaller", Page::TextSize},
    Command{u"mnuFontSmallest", Page::TextSize},
    Command{u"mnuFont", Page::MediumTextSize},
    FromHost<&CommandHost::LaunchNewsClient>(u"mnuReadNews"),
    Command{u"mnuNewMessage", Page::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuSendLink", Page::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuMailQuorvaneSoftware", Page::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuFeatureRequest", Page::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuMailBugReport", Page::Mail, Has<&CommandHost::MailAddress>},
    FromHost<&CommandHost::LaunchMailClient>(u"mnuReadMail"),
    FromHost<&CommandHost::LaunchMailClient>(u"mnuMail"),
    Command{u"mnuNextBrowserTab", Tabs::Next},
    Command{u"mnuPreviousBrowserTab", Tabs::Previous},
    FromHost<&CommandHost::ShowSettings>(u"mnuSettings"),
    Command{u"mnuOpen", Page::Open},
    FromHost<&CommandHost::ShowAbout>(u"mnuAbout"),
    Command{u"mnuSaveAsTessaGroup", Keep::SaveAsTessaGroup, Has<&CommandHost::SaveAsTessaGroup>},
    Command{u"mnuGoBack", Page::GoBack},
    Command{u"mnuGoForward", Page::GoForward},
    Command{u"mnuAddToFavorites", Keep::AddToFavorites, Has<&CommandHost::AddFavorite>},
    Command{u"mnuOrganizeFavorites", Keep::OrganizeFavorites, Has<&CommandHost::OrganizeFavorites>},
    Command{u"mnuNewHome", Tabs::NewHome},
    Command{u"mnuViewStatusbar", ToggleStatusBar},
    Command{u"mnuNewSearch", Tabs::NewSearch},
    Command{u"mnuNewBlank", Tabs::NewBlank},
    Command{u"tbNew", Tabs::NewBlank},
    Command{u"mnuNewCurrent", Tabs::NewCurrent},
    Command{u"mnuClose", Tabs::Close},
    Command{u"mnuSearch", Page::Search},
    Command{u"mnuHome", Page::Home},
    Command{u"mnuStop", Page::Stop},
    Command{u"mnuRefresh", Page::Refresh},
    Command{u"mnuSaveAs", Page::Exec<BrowserCommand::SaveAs>},
    Command{u"mnuPageSetup", Page::Exec<BrowserCommand::PageSetup>},
    Command{u"mnuPrint", Page::Exec<BrowserCommand::Print>},
    Command{u"mnuCut", Page::Exec<BrowserCommand::Cut>},
    Command{u"mnuCopy", Page::Exec<BrowserCommand::Copy>},
    Command{u"mnuPaste", Page::Exec<BrowserCommand::Paste>},
    Command{u"mnuSelectAll", Page::SelectAll},
    Command{u"mnuFind", Page::Find, Has<&CommandHost::ShowFind>},
    Command{u"mnuViewInternetOptions", Page::InternetOptions, Has<&CommandHost::ShowInternetOptions>},
    Command{u"mnuViewSource", Page::Source},
    FromHost<&CommandHost::Exit>(u"mnuExit"),
    FromHost<&CommandHost::Customize>(u"mnuViewToolbars"),
    Command{u"mnuTabStop", Tabs::PopupStop},
    Command{u"mnuTabRefresh", Tabs::PopupRefresh},
    Command{u"mnuTabClose", Tabs::PopupClose},
    // Our own come behind the product's.
    FromHost<&CommandHost::ShowSessions>(u"xtrSessions"),
    FromHost<&CommandHost::ToggleDownloads>(u"xtrDownloads"),
    Command{u"xtrPrivateTab", Tabs::NewPrivate},
    Command{u"xtrLinkOpen", PageMenu::OpenLink},
    Command{u"xtrLinkOpenOther", PageMenu::OpenLinkOtherWay},
    Command{u"xtrLinkOpenPrivate", PageMenu::OpenLinkPrivate},
    Command{u"xtrLinkSave", PageMenu::SaveLink},
    Command{u"xtrLinkCopy", PageMenu::CopyLink, Has<&CommandHost::CopyText>},
    Command{u"xtrLinkAddToTessaGroup", PageMenu::AddLinkToTessaGroup, Has<&CommandHost::AddToTessaGroup>},
    Command{u"xtrImageOpen", PageMenu::OpenMedia},
    Command{u"xtrImageSave", PageMenu::SaveMedia},
    Command{u"xtrImageCopy", PageMenu::Run},
    Command{u"xtrMediaPlay", PageMenu::Run},
    Command{u"xtrMediaMute", PageMenu::Run},
    Command{u"xtrMediaLoop", PageMenu::Run},
    Command{u"xtrMediaControls", PageMenu::Run},
    Command{u"xtrMediaSave", PageMenu::SaveMedia},
    Command{u"xtrMediaCopyAddress", PageMenu::CopyMediaAddress, Has<&CommandHost::CopyText>},
    Command{u"xtrUndo", PageMenu::Run},
    Command{u"xtrRedo", PageMenu::Run},
    Command{u"xtrPasteAsText", PageMenu::Run},
    Command{u"xtrSearchSelection", PageMenu::SearchForSelection},
    Command{u"xtrOpenSelectedLinks", PageMenu::OpenSelectedLinks},
    Command{u"xtrReplaceWord", PageMenu::ReplaceWord},
    Command{u"xtrInspect", PageMenu::Run},
    Command{u"xtrStopAll", StopAll},
    Command{u"xtrTabCloseOthers", TabMore::CloseOthers},
    Command{u"xtrTabCloseRight", TabMore::CloseToTheRight},
    Command{u"xtrTabDuplicate", TabMore::Duplicate},
    Command{u"xtrReopenTab", TabMore::Reopen},
    FromHost<&CommandHost::ShowTabList>(u"xtrTabList"),
    Command{u"xtrTabMute", TabMore::Mute},
    Command{u"xtrTabAddToTessaGroup", Keep::AddTabToTessaGroup, Has<&CommandHost::AddToTessaGroup>},
    Command{u"xtrTabCopyAddress", TabMore::CopyAddress, Has<&CommandHost::CopyText>},
    Command{u"xtrTextLarger", Page::LargerText},
    Command{u"xtrTextSmaller", Page::SmallerText},
    Command{u"xtrTextUsual", Page::MediumTextSize},
    Command{u"xtrPrintPreview", Page::Exec<BrowserCommand::PrintPreview>},
    FromHost<&CommandHost::ToggleFullScreen>(u"xtrFullScreen"),
    FromHost<&CommandHost::ToggleDevTools>(u"xtrDevTools"),
    FromHost<&CommandHost::ShowTaskView>(u"xtrTaskView"),
    Command{u"xtrImportFavorites", BookmarkCommands::ImportFavorites},
    Command{u"xtrImportTessaGroups", BookmarkCommands::ImportTessaGroups},
    Command{u"xtrExportFavorites", BookmarkCommands::ExportFavorites},
    Command{u"xtrExportTessaGroups", BookmarkCommands::ExportTessaGroups},
    Command{u"xtrFolderOpen", MenuEntry::OpenFolder, Has<&CommandHost::OpenFavorites>},
    Command{u"xtrFolderSave", MenuEntry::SaveFolder, Has<&CommandHost::SaveFavorites>},
    Command{u"xtrLinkNewTab", MenuEntry::OpenLink},
    Command{u"xtrGroupOpen", MenuEntry::OpenGroup},
    Command{u"xtrGroupOrganize", MenuEntry::OrganizeGroup, Has<&CommandHost::OrganizeTessaGroup>},
    Command{u"xtrGroupDelete", MenuEntry::DeleteGroup, Has<&CommandHost::MoveToTrash>},
};

} // namespace

std::span<const Command> CommandTable() { return kCommands; }
