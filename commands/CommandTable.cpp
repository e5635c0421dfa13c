#include "commands/CommandTable.h"

#include "commands/BookmarkCommands.h"
#include "commands/CollectionCommands.h"
#include "commands/HistoryCommands.h"
#include "commands/MenuEntryCommands.h"
#include "commands/PageCommands.h"
#include "commands/PageMenu.h"
#include "commands/TabCommands.h"
#include "commands/TabMoreCommands.h"

#include <array>

namespace {

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

namespace Pages = PageCommands;
namespace Tabs = TabCommands;
namespace TabMore = TabMoreCommands;
namespace Keep = CollectionCommands;
namespace MenuEntry = MenuEntryCommands;

const std::array kCommands{
    Command{u"mnuAddToTessaGroup", Keep::AddToTessaGroup, Has<&CommandHost::AddToTessaGroup>},
    Command{u"mnuCloseAll", Tabs::CloseAll},
    FromHost<&CommandHost::ShowHelp>(u"mnuHelp"),
    Command{u"mnuClearAddresses", HistoryCommands::ClearAddresses},
    Command{u"mnuClearSearches", HistoryCommands::ClearSearches},
    Command{u"mnuLoadImages", Pages::ToggleLoadOption},
    Command{u"mnuLoadVideos", Pages::ToggleLoadOption},
    Command{u"mnuLoadSounds", Pages::ToggleLoadOption},
    Command{u"mnuLoadAnimations", Pages::ToggleLoadOption},
    Command{u"mnuOrganizeTessaGroups", Keep::OrganizeTessaGroups, Has<&CommandHost::OrganizeTessaGroups>},
    Command{u"mnuFontLargest", Pages::TextSize},
    Command{u"mnuFontLarger", Pages::TextSize},
    Command{u"mnuFontMedium", Pages::TextSize},
    Command{u"mnuFontSmaller", Pages::TextSize},
    Command{u"mnuFontSmallest", Pages::TextSize},
    Command{u"mnuFont", Pages::MediumTextSize},
    FromHost<&CommandHost::LaunchNewsClient>(u"mnuReadNews"),
    Command{u"mnuNewMessage", Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuSendLink", Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuMailQuorvaneSoftware", Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuFeatureRequest", Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuMailBugReport", Pages::Mail, Has<&CommandHost::MailAddress>},
    FromHost<&CommandHost::LaunchMailClient>(u"mnuReadMail"),
    FromHost<&CommandHost::LaunchMailClient>(u"mnuMail"),
    Command{u"mnuNextBrowserTab", Tabs::Next},
    Command{u"mnuPreviousBrowserTab", Tabs::Previous},
    FromHost<&CommandHost::ShowSettings>(u"mnuSettings"),
    Command{u"mnuOpen", Pages::Open},
    FromHost<&CommandHost::ShowAbout>(u"mnuAbout"),
    Command{u"mnuSaveAsTessaGroup", Keep::SaveAsTessaGroup, Has<&CommandHost::SaveAsTessaGroup>},
    Command{u"mnuGoBack", Pages::GoBack},
    Command{u"mnuGoForward", Pages::GoForward},
    Command{u"mnuAddToFavorites", Keep::AddToFavorites, Has<&CommandHost::AddFavorite>},
    Command{u"mnuOrganizeFavorites", Keep::OrganizeFavorites, Has<&CommandHost::OrganizeFavorites>},
    Command{u"mnuNewHome", Tabs::NewHome},
    Command{u"mnuViewStatusbar", ToggleStatusBar},
    Command{u"mnuNewSearch", Tabs::NewSearch},
    Command{u"mnuNewBlank", Tabs::NewBlank},
    Command{u"tbNew", Tabs::NewBlank},
    Command{u"mnuNewCurrent", Tabs::NewCurrent},
    Command{u"mnuClose", Tabs::Close},
    Command{u"mnuSearch", Pages::Search},
    Command{u"mnuHome", Pages::Home},
    Command{u"mnuStop", Pages::Stop},
    Command{u"mnuRefresh", Pages::Refresh},
    Command{u"mnuSaveAs", Pages::Exec<BrowserCommand::SaveAs>},
    Command{u"mnuPageSetup", Pages::Exec<BrowserCommand::PageSetup>},
    Command{u"mnuPrint", Pages::Exec<BrowserCommand::Print>},
    Command{u"mnuCut", Pages::Exec<BrowserCommand::Cut>},
    Command{u"mnuCopy", Pages::Exec<BrowserCommand::Copy>},
    Command{u"mnuPaste", Pages::Exec<BrowserCommand::Paste>},
    Command{u"mnuSelectAll", Pages::SelectAll},
    Command{u"mnuFind", Pages::Find, Has<&CommandHost::ShowFind>},
    Command{u"mnuViewInternetOptions", Pages::InternetOptions, Has<&CommandHost::ShowInternetOptions>},
    Command{u"mnuViewSource", Pages::Source},
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
    Command{u"xtrTextLarger", Pages::LargerText},
    Command{u"xtrTextSmaller", Pages::SmallerText},
    Command{u"xtrTextUsual", Pages::MediumTextSize},
    Command{u"xtrPrintPreview", Pages::Exec<BrowserCommand::PrintPreview>},
    FromHost<&CommandHost::ToggleFullScreen>(u"xtrFullScreen"),
    FromHost<&CommandHost::ToggleDevTools>(u"xtrDevTools"),
    FromHost<&CommandHost::ShowTaskView>(u"xtrTaskView"),
    FromHost<&CommandHost::CopyReport>(u"xtrCopyReport"),
    Command{u"xtrImportFavorites", BookmarkCommands::ImportFavorites},
    Command{u"xtrImportTessaGroups", BookmarkCommands::ImportTessaGroups},
    Command{u"xtrExportFavorites", BookmarkCommands::ExportFavorites},
    Command{u"xtrExportTessaGroups", BookmarkCommands::ExportTessaGroups},
    Command{u"xtrFolderOpen", MenuEntry::OpenFolder, Has<&CommandHost::OpenFavorites>},
    Command{u"xtrFolderSave", MenuEntry::SaveFolder, Has<&CommandHost::SaveFavorites>},
    Command{u"xtrLinkNewTab", MenuEntry::OpenLink},
    Command{u"xtrGroupOpen", MenuEntry::OpenGroup},
    Command{u"xtrGroupOrganize", MenuEntry::OrganizeGroup, Has<&CommandHost::OrganizeTessaGroup>},
    Command{u"xtrGroupRename", MenuEntry::RenameGroup, Has<&CommandHost::ShowRenameGroup>},
    Command{u"xtrGroupDelete", MenuEntry::DeleteGroup, Has<&CommandHost::MoveToTrash>},
};

} // namespace

std::span<const Command> CommandTable() { return kCommands; }
