#pragma once
#include "commands/effects/ChosenCommands.h"
#include "commands/effects/PageCommands.h"
#include "commands/effects/ReadingCommands.h"
#include "commands/effects/TabCommands.h"
#include "commands/effects/TabMoreCommands.h"
#include "commands/effects/TileCommands.h"
#include "commands/rows/RowParts.h"

#include <array>

namespace tessa::CommandRows {

namespace Pages = PageCommands;
namespace Tabs = TabCommands;
namespace TabMore = TabMoreCommands;

inline void StopAll(CommandContext& context) { context.groups.StopAll(); }

/// The menu of further commands, and those of a tab.
inline constexpr std::array kMoreRows{
    Command{u"xtrMore"_tool, u"&More", u"More", u"Shows more commands", u"application-menu", Opens{u"bndMoreMenu"_band},
            Key{'M', kAlt}},
    Command{u"xtrReopenTab"_tool, u"&Reopen Closed Tab", u"More", u"Brings back what was closed last", u"edit-undo",
            Key{'T', kCtrl | kShift}, TabMore::Reopen},
    Command{u"xtrTabList"_tool, u"&List Tabs", u"More", u"Lists all tabs and searches them", u"view-list-text",
            Key{'A', kCtrl | kShift}, kRunsTool<&WindowTools::ShowTabList>},
    Command{u"xtrTabMore"_tool, u"&More", u"", u"Shows more commands for this tab", u"", Opens{u"bndTabMore"_band}},
    Command{u"xtrTabCloseOthers"_tool, u"Close &Others", u"", u"Closes all tabs but this one", u"",
            TabMore::CloseOthers},
    Command{u"xtrTabCloseRight"_tool, u"Close to the R&ight", u"", u"Closes the tabs to the right of this one", u"",
            TabMore::CloseToTheRight},
    Command{u"xtrTabDuplicate"_tool, u"&Duplicate", u"", u"Opens this page once more beside its tab", u"tab-duplicate",
            TabMore::Duplicate},
    Command{u"xtrTabMute"_tool, u"M&ute", u"", u"Silences this tab or lets it be heard again", u"audio-volume-muted",
            ChosenCommands::PopupMute},
    Command{u"xtrTabAddToTessaGroup"_tool, u"Add to &TessaGroup...", u"", u"Adds this page to a TessaGroup",
            u"list-add", ChosenCommands::PopupAddToTessaGroup},
    Command{u"xtrTabCopyAddress"_tool, u"Copy &Address", u"", u"Copies the address of this page to the clipboard",
            u"edit-copy", ChosenCommands::PopupCopyAddress},
    Command{u"xtrSessions"_tool, u"Earlier &Sessions...", u"More", u"Opens pages of earlier sessions again",
            u"view-history", kRuns<&WindowCommands::ShowSessions>},
    Command{u"xtrDownloads"_tool, u"Do&wnloads", u"More", u"Shows the files that are being saved and those that were",
            u"folder-download", Key{'J', kCtrl}, kRuns<&WindowCommands::ToggleDownloads>},
    Command{u"xtrHistory"_tool, u"&History", u"More", u"Shows what you have read, and searches in it", u"view-history",
            Key{'H', kCtrl}, kRuns<&WindowCommands::ShowHistory>},
    Command{u"xtrSearchOpenPages"_tool, u"Search in &Open Pages", u"More", u"Searches in all open tabs at once",
            u"edit-find", Key{'F', kCtrl | kShift}, kRuns<&WindowCommands::SearchOpenPages>},
    Command{u"xtrShowWhatIsNew"_tool, u"Show What Is &New", u"More",
            u"Marks what is new on the page since you read it, and goes from one to the next", u"", Key{Keys::kF7},
            ReadingCommands::ShowWhatIsNew},
    Command{u"xtrNextUnread"_tool, u"Ne&xt Unread Tab", u"More", u"Shows the next tab that you have not read yet",
            u"go-next-view", ReadingCommands::NextUnread},
    Command{u"xtrTabShowWhatIsNew"_tool, u"Show What Is &New", u"",
            u"Marks what is new on the page of this tab since you read it", u"", ReadingCommands::TabShowWhatIsNew},
    Command{u"xtrTabCloseWithoutNews"_tool, u"Close Tabs &Without News", u"",
            u"Closes the tabs that say what they said when you read them", u"", ReadingCommands::CloseWithoutNews},
    Command{u"xtrTabCloseRead"_tool, u"Clo&se What Was Read", u"", u"Closes the tabs that you have read", u"",
            ReadingCommands::CloseRead},
    Command{u"xtrStopAll"_tool, u"Stop &All Pages", u"More", u"Stops every page that is loading", u"process-stop",
            Key{Keys::kEscape, kShift}, StopAll},
    Command{u"xtrTextLarger"_tool, u"Lar&ger Text", u"More", u"Shows the text of the page one size larger",
            u"format-font-size-more", Key{Keys::kPlus, kCtrl}, Key{Keys::kPlus, kCtrl | kShift}, Pages::LargerText},
    Command{u"xtrTextSmaller"_tool, u"S&maller Text", u"More", u"Shows the text of the page one size smaller",
            u"format-font-size-less", Key{Keys::kMinus, kCtrl}, Pages::SmallerText},
    Command{u"xtrTextUsual"_tool, u"&Usual Text", u"More", u"Shows the text of the page at its usual size", u"",
            Key{'0', kCtrl}, Pages::MediumTextSize},
    Command{u"xtrFullScreen"_tool, u"Full S&creen", u"More", u"Shows pages on the whole screen", u"view-fullscreen",
            Key{Keys::kF11}, kRuns<&WindowCommands::ToggleFullScreen>},
    Command{u"xtrPrintPreview"_tool, u"Print Pre&view", u"More", u"Shows in a tab how the page will look on paper",
            u"document-print-preview", Pages::Exec<BrowserCommand::PrintPreview>},
    Command{u"xtrDevTools"_tool, u"&Developer Tools", u"More", u"Shows how the current page is made", u"tools",
            Key{Keys::kF12}, kRunsTool<&WindowTools::ToggleDevTools>},
    Command{u"xtrTaskView"_tool, u"&Task View", u"More",
            u"Shows what each tab uses of memory and processor, and ends pages", u"utilities-system-monitor",
            Key{Keys::kEscape, kCtrl | kShift}, kRuns<&WindowCommands::ShowTaskView>},
    Command{u"xtrTiles"_tool, u"Side &by Side", u"More", u"Shows several tabs at once", u"view-split-left-right",
            Opens{u"bndTileMenu"_band}},
    Command{u"xtrTileColumns"_tool, u"&Columns", u"More", u"Shows the tabs one beside the other",
            u"view-split-left-right", TileCommands::Columns},
    Command{u"xtrTileRows"_tool, u"&Rows", u"More", u"Shows the tabs one above the other", u"view-split-top-bottom",
            TileCommands::Rows},
    Command{u"xtrTileGrid"_tool, u"&Grid", u"More", u"Shows the tabs in rows and columns", u"view-grid",
            TileCommands::Grid},
    Command{u"xtrTileMain"_tool, u"&One Large", u"More", u"Shows this tab large and the others small beside it",
            u"view-right-new", TileCommands::Main},
    Command{u"xtrTileNone"_tool, u"&Alone", u"More", u"Shows this tab alone again; all tabs stay open",
            u"view-right-close", TileCommands::None},
    Command{u"xtrTileLink"_tool, u"&Link Panes", u"More", u"Scrolls, sizes, searches and loads all panes together",
            u"link", TileCommands::Link},
    Command{u"xtrTileHeaders"_tool, u"Show &Titles", u"More", u"Shows or hides the title above each pane", u"",
            TileCommands::ToggleHeaders},
    Command{u"xtrTabBeside"_tool, u"Show &Beside", u"", u"Shows this tab beside the one in front, or no longer",
            u"view-split-left-right", TileCommands::TabBeside},
    Command{u"xtrCopyReport"_tool, u"&Copy Report", u"More",
            u"Copies version, settings and log for a message to the makers; no address or title is in it", u"edit-copy",
            kRuns<&WindowCommands::CopyReport>},
    Command{u"xtrPrivateTab"_tool, u"New &Private Tab", u"More",
            u"Opens a tab whose page, cookies and history are forgotten with the last private tab", u"view-private",
            Key{'N', kCtrl | kShift}, Tabs::NewPrivate},
};

} // namespace tessa::CommandRows
