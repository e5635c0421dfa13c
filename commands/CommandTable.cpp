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
constexpr Command FromHost(ToolName tool) {
    return {tool, Host<operation>, Has<operation>};
}

namespace Pages = PageCommands;
namespace Tabs = TabCommands;
namespace TabMore = TabMoreCommands;
namespace Keep = CollectionCommands;
namespace MenuEntry = MenuEntryCommands;

const std::array kCommands{
    Command{u"mnuAddToTessaGroup"_tool, Keep::AddToTessaGroup, Has<&CommandHost::AddToTessaGroup>},
    Command{u"mnuCloseAll"_tool, Tabs::CloseAll},
    FromHost<&CommandHost::ShowHelp>(u"mnuHelp"_tool),
    Command{u"mnuClearAddresses"_tool, HistoryCommands::ClearAddresses},
    Command{u"mnuClearSearches"_tool, HistoryCommands::ClearSearches},
    Command{u"mnuLoadImages"_tool, Pages::ToggleLoadOption},
    Command{u"mnuLoadVideos"_tool, Pages::ToggleLoadOption},
    Command{u"mnuLoadSounds"_tool, Pages::ToggleLoadOption},
    Command{u"mnuLoadAnimations"_tool, Pages::ToggleLoadOption},
    Command{u"mnuOrganizeTessaGroups"_tool, Keep::OrganizeTessaGroups, Has<&CommandHost::OrganizeTessaGroups>},
    Command{u"mnuFontLargest"_tool, Pages::TextSize},
    Command{u"mnuFontLarger"_tool, Pages::TextSize},
    Command{u"mnuFontMedium"_tool, Pages::TextSize},
    Command{u"mnuFontSmaller"_tool, Pages::TextSize},
    Command{u"mnuFontSmallest"_tool, Pages::TextSize},
    Command{u"mnuFont"_tool, Pages::MediumTextSize},
    FromHost<&CommandHost::LaunchNewsClient>(u"mnuReadNews"_tool),
    Command{u"mnuNewMessage"_tool, Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuSendLink"_tool, Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuMailQuorvaneSoftware"_tool, Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuFeatureRequest"_tool, Pages::Mail, Has<&CommandHost::MailAddress>},
    Command{u"mnuMailBugReport"_tool, Pages::Mail, Has<&CommandHost::MailAddress>},
    FromHost<&CommandHost::LaunchMailClient>(u"mnuReadMail"_tool),
    FromHost<&CommandHost::LaunchMailClient>(u"mnuMail"_tool),
    Command{u"mnuNextBrowserTab"_tool, Tabs::Next},
    Command{u"mnuPreviousBrowserTab"_tool, Tabs::Previous},
    FromHost<&CommandHost::ShowSettings>(u"mnuSettings"_tool),
    Command{u"mnuOpen"_tool, Pages::Open},
    FromHost<&CommandHost::ShowAbout>(u"mnuAbout"_tool),
    Command{u"mnuSaveAsTessaGroup"_tool, Keep::SaveAsTessaGroup, Has<&CommandHost::SaveAsTessaGroup>},
    Command{u"mnuGoBack"_tool, Pages::GoBack},
    Command{u"mnuGoForward"_tool, Pages::GoForward},
    Command{u"mnuAddToFavorites"_tool, Keep::AddToFavorites, Has<&CommandHost::AddFavorite>},
    Command{u"mnuOrganizeFavorites"_tool, Keep::OrganizeFavorites, Has<&CommandHost::OrganizeFavorites>},
    Command{u"mnuNewHome"_tool, Tabs::NewHome},
    Command{u"mnuViewStatusbar"_tool, ToggleStatusBar},
    Command{u"mnuNewSearch"_tool, Tabs::NewSearch},
    Command{u"mnuNewBlank"_tool, Tabs::NewBlank},
    Command{u"tbNew"_tool, Tabs::NewBlank},
    Command{u"mnuNewCurrent"_tool, Tabs::NewCurrent},
    Command{u"mnuClose"_tool, Tabs::Close},
    Command{u"mnuSearch"_tool, Pages::Search},
    Command{u"mnuHome"_tool, Pages::Home},
    Command{u"mnuStop"_tool, Pages::Stop},
    Command{u"mnuRefresh"_tool, Pages::Refresh},
    Command{u"mnuSaveAs"_tool, Pages::Exec<BrowserCommand::SaveAs>},
    Command{u"mnuPageSetup"_tool, Pages::Exec<BrowserCommand::PageSetup>},
    Command{u"mnuPrint"_tool, Pages::Exec<BrowserCommand::Print>},
    Command{u"mnuCut"_tool, Pages::Exec<BrowserCommand::Cut>},
    Command{u"mnuCopy"_tool, Pages::Exec<BrowserCommand::Copy>},
    Command{u"mnuPaste"_tool, Pages::Exec<BrowserCommand::Paste>},
    Command{u"mnuSelectAll"_tool, Pages::SelectAll},
    Command{u"mnuFind"_tool, Pages::Find, Has<&CommandHost::ShowFind>},
    Command{u"mnuViewInternetOptions"_tool, Pages::InternetOptions, Has<&CommandHost::ShowInternetOptions>},
    Command{u"mnuViewSource"_tool, Pages::Source},
    FromHost<&CommandHost::Exit>(u"mnuExit"_tool),
    FromHost<&CommandHost::Customize>(u"mnuViewToolbars"_tool),
    Command{u"mnuTabStop"_tool, Tabs::PopupStop},
    Command{u"mnuTabRefresh"_tool, Tabs::PopupRefresh},
    Command{u"mnuTabClose"_tool, Tabs::PopupClose},
    // Our own come behind the product's.
    FromHost<&CommandHost::ShowSessions>(u"xtrSessions"_tool),
    FromHost<&CommandHost::ToggleDownloads>(u"xtrDownloads"_tool),
    Command{u"xtrPrivateTab"_tool, Tabs::NewPrivate},
    Command{u"xtrLinkOpen"_tool, PageMenu::OpenLink},
    Command{u"xtrLinkOpenOther"_tool, PageMenu::OpenLinkOtherWay},
    Command{u"xtrLinkOpenPrivate"_tool, PageMenu::OpenLinkPrivate},
    Command{u"xtrLinkSave"_tool, PageMenu::SaveLink},
    Command{u"xtrLinkCopy"_tool, PageMenu::CopyLink, Has<&CommandHost::CopyText>},
    Command{u"xtrLinkAddToTessaGroup"_tool, PageMenu::AddLinkToTessaGroup, Has<&CommandHost::AddToTessaGroup>},
    Command{u"xtrImageOpen"_tool, PageMenu::OpenMedia},
    Command{u"xtrImageSave"_tool, PageMenu::SaveMedia},
    Command{u"xtrImageCopy"_tool, PageMenu::Run},
    Command{u"xtrMediaPlay"_tool, PageMenu::Run},
    Command{u"xtrMediaMute"_tool, PageMenu::Run},
    Command{u"xtrMediaLoop"_tool, PageMenu::Run},
    Command{u"xtrMediaControls"_tool, PageMenu::Run},
    Command{u"xtrMediaSave"_tool, PageMenu::SaveMedia},
    Command{u"xtrMediaCopyAddress"_tool, PageMenu::CopyMediaAddress, Has<&CommandHost::CopyText>},
    Command{u"xtrUndo"_tool, PageMenu::Run},
    Command{u"xtrRedo"_tool, PageMenu::Run},
    Command{u"xtrPasteAsText"_tool, PageMenu::Run},
    Command{u"xtrSearchSelection"_tool, PageMenu::SearchForSelection},
    Command{u"xtrOpenSelectedLinks"_tool, PageMenu::OpenSelectedLinks},
    Command{u"xtrReplaceWord"_tool, PageMenu::ReplaceWord},
    Command{u"xtrInspect"_tool, PageMenu::Run},
    Command{u"xtrStopAll"_tool, StopAll},
    Command{u"xtrTabCloseOthers"_tool, TabMore::CloseOthers},
    Command{u"xtrTabCloseRight"_tool, TabMore::CloseToTheRight},
    Command{u"xtrTabDuplicate"_tool, TabMore::Duplicate},
    Command{u"xtrReopenTab"_tool, TabMore::Reopen},
    FromHost<&CommandHost::ShowTabList>(u"xtrTabList"_tool),
    Command{u"xtrTabMute"_tool, TabMore::Mute},
    Command{u"xtrTabAddToTessaGroup"_tool, Keep::AddTabToTessaGroup, Has<&CommandHost::AddToTessaGroup>},
    Command{u"xtrTabCopyAddress"_tool, TabMore::CopyAddress, Has<&CommandHost::CopyText>},
    Command{u"xtrTextLarger"_tool, Pages::LargerText},
    Command{u"xtrTextSmaller"_tool, Pages::SmallerText},
    Command{u"xtrTextUsual"_tool, Pages::MediumTextSize},
    Command{u"xtrPrintPreview"_tool, Pages::Exec<BrowserCommand::PrintPreview>},
    FromHost<&CommandHost::ToggleFullScreen>(u"xtrFullScreen"_tool),
    FromHost<&CommandHost::ToggleDevTools>(u"xtrDevTools"_tool),
    FromHost<&CommandHost::ShowTaskView>(u"xtrTaskView"_tool),
    FromHost<&CommandHost::CopyReport>(u"xtrCopyReport"_tool),
    Command{u"xtrImportFavorites"_tool, BookmarkCommands::ImportFavorites},
    Command{u"xtrImportTessaGroups"_tool, BookmarkCommands::ImportTessaGroups},
    Command{u"xtrExportFavorites"_tool, BookmarkCommands::ExportFavorites},
    Command{u"xtrExportTessaGroups"_tool, BookmarkCommands::ExportTessaGroups},
    Command{u"xtrFolderOpen"_tool, MenuEntry::OpenFolder, Has<&CommandHost::OpenFavorites>},
    Command{u"xtrFolderSave"_tool, MenuEntry::SaveFolder, Has<&CommandHost::SaveFavorites>},
    Command{u"xtrLinkNewTab"_tool, MenuEntry::OpenLink},
    Command{u"xtrGroupOpen"_tool, MenuEntry::OpenGroup},
    Command{u"xtrGroupOrganize"_tool, MenuEntry::OrganizeGroup, Has<&CommandHost::OrganizeTessaGroup>},
    Command{u"xtrGroupRename"_tool, MenuEntry::RenameGroup, Has<&CommandHost::ShowRenameGroup>},
    Command{u"xtrGroupDelete"_tool, MenuEntry::DeleteGroup, Has<&CommandHost::MoveToTrash>},
};

} // namespace

std::span<const Command> CommandTable() { return kCommands; }
