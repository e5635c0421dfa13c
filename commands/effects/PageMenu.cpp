#include "commands/effects/PageMenu.h"

#include "address/Endpoints.h"
#include "bar/ToolName.h"
#include "base/Captions.h"
#include "base/LinkTrust.h"
#include "base/PlainText.h"
#include "base/os/AtomicFile.h"
#include "commands/effects/CollectionCommands.h"
#include "commands/effects/PageMenuEntries.h"
#include "downloads/FileNames.h"
#include "pages/LinkRules.h"

#include <array>

namespace tessa {

namespace {

constexpr std::size_t kShownWords = 24;
constexpr std::size_t kMostWords = 500;
/// So many links open without a question.
constexpr std::size_t kManyLinks = 15;
constexpr std::size_t kMostLinks = 200;
constexpr TextView kCancelButton = u"&Cancel";

struct Action {
    ToolName tool;
    PageAction action;
};

constexpr std::array kActions{
    Action{u"xtrUndo"_tool, PageAction::Undo},
    Action{u"xtrRedo"_tool, PageAction::Redo},
    Action{u"xtrPasteAsText"_tool, PageAction::PasteAsText},
    Action{u"xtrImageCopy"_tool, PageAction::CopyImage},
    Action{u"xtrMediaPlay"_tool, PageAction::PlayOrPause},
    Action{u"xtrMediaMute"_tool, PageAction::MuteOrNot},
    Action{u"xtrMediaLoop"_tool, PageAction::LoopOrNot},
    Action{u"xtrMediaControls"_tool, PageAction::ShowControlsOrNot},
    Action{u"xtrInspect"_tool, PageAction::Inspect},
};

/// How a tab is opened.
struct TabToOpen {
    InFront inFront;
    Privacy privacy;
};

// The view that the menu was asked for is fixed when a command begins. Meanwhile another tab may be selected, or the
// view's tab may go.
PageTools* Tools(const CommandContext& context, std::int32_t index) {
    auto* view = context.tabs.OpenView(index);
    return view ? view->Control->Tools() : nullptr;
}

void OpenInTab(CommandContext& context, std::int32_t index, TextView address, TabToOpen tab) {
    const auto* view = context.tabs.OpenView(index);
    if (!view || !MayOpenFromPage(view->Control->LocationURL(), address)) return;
    if (auto* opened = context.tabs.GetNewBrowser(tab.inFront, tab.privacy))
        ResumeNext(opened->Navigate(Text(address)));
}

void OpenInTab(CommandContext& context, const Text& address, NewWindowPlace place) {
    const std::int32_t index = context.menuView;
    OpenInTab(context, index, address, {context.tabs.PlaceFor(place), context.tabs.PrivacyOf(index)});
}

void SaveAddress(CommandContext& context, const Text& address) {
    const std::int32_t index = context.menuView;
    if (!Tools(context, index) || !MaySave(address)) return;
    const Text path = context.files.ShowSave({.DialogTitle = u"Save As",
                                              .InitDir = context.downloads.Folder(),
                                              .Filter = {},
                                              .FileName = FileNameOfAddress(address)});
    if (path.empty()) return;
    if (FileExists(PathToBytes(path)) && !context.messages.AskOwn({u"A file with this name already exists",
                                                                   OneLine(path), Text(kCancelButton), u"&Replace It"}))
        return;
    if (auto* tools = Tools(context, index)) ResumeNext(tools->Save(address, path));
}

void SetCaption(const CommandContext& context, ToolName tool, Text caption) {
    if (auto* found = context.actBar.Find(tool)) found->Caption = std::move(caption);
}

void ShowState(const CommandContext& context, const PageContext& page) {
    SetCaption(context, u"xtrLinkOpenOther"_tool,
               context.tabs.OpenNewInFront ? u"Open Link &Behind This Tab" : u"Open Link in &Front");
    SetCaption(context, u"xtrSearchSelection"_tool,
               u"S&earch for \"" + EscapedCaption(PlainLine(page.SelectedText, kShownWords)) + u"\"");
    const bool image = page.Media == PageContext::Kind::Image;
    SetCaption(context, u"xtrMediaCopyAddress"_tool, image ? u"Copy Image &Address" : u"Copy Media &Address");
    SetCaption(context, u"xtrMediaPlay"_tool, page.MediaPaused ? u"Pla&y" : u"Pa&use");
    for (const auto& [tool, checked] :
         {std::pair(u"xtrMediaMute"_tool, page.MediaMuted), std::pair(u"xtrMediaLoop"_tool, page.MediaLoops),
          std::pair(u"xtrMediaControls"_tool, page.MediaHasControls)}) {
        if (auto* found = context.actBar.Find(tool)) found->Checked = checked;
    }
}

} // namespace

namespace PageMenu {

void Open(CommandContext& context, std::int32_t index, const PageContext& page) {
    context.menuView = index;
    context.menuPage = page;
    const auto* view = context.tabs.OpenView(index);
    if (!view) return;
    ShowState(context, page);
    auto* band = context.actBar.FindBand(kBand);
    if (!band) band = context.actBar.AddBand(Text(kBand), u"Page", BandKind::Popup, MadeFrom::Page{});
    band->SetEntries(PageMenuEntries::For(context, page, view->Control->LocationURL()));
    context.actBar.Popup(kBand);
}

void OpenLink(CommandContext& context) { OpenInTab(context, context.menuPage.LinkURL, NewWindowPlace::AsSet); }

void OpenLinkOtherWay(CommandContext& context) {
    OpenInTab(context, context.menuPage.LinkURL, NewWindowPlace::OtherWay);
}

void OpenLinkPrivate(CommandContext& context) {
    OpenInTab(context, context.menuView, context.menuPage.LinkURL,
              {context.tabs.PlaceFor(NewWindowPlace::AsSet), Privacy::Private});
}

void OpenMedia(CommandContext& context) { OpenInTab(context, context.menuPage.MediaURL, NewWindowPlace::AsSet); }

void SaveLink(CommandContext& context) { SaveAddress(context, Text(context.menuPage.LinkURL)); }

void SaveMedia(CommandContext& context) { SaveAddress(context, Text(context.menuPage.MediaURL)); }

void CopyLink(CommandContext& context) { context.input.Copy(context.menuPage.LinkURL); }

void CopyMediaAddress(CommandContext& context) { context.input.Copy(context.menuPage.MediaURL); }

void AddLinkToTessaGroup(CommandContext& context) {
    const Text link = context.menuPage.LinkURL;
    const bool isPrivate = context.tabs.PrivacyOf(context.menuView) == Privacy::Private;
    if (isPrivate &&
        !context.messages.AskOwn({u"The link is in a private tab", u"The TessaGroup would keep its address.",
                                  Text(kCancelButton), u"&Add It"}))
        return;
    const Text file = CollectionCommands::AskForGroup(context);
    if (file.empty()) return;
    context.groups.AddToTessaGroup(link, file);
    context.groupsMenuStale = true;
}

void SearchForSelection(CommandContext& context) {
    const Text words = PlainLine(context.menuPage.SelectedText, kMostWords);
    if (!context.tabs.OpenView(context.menuView) || words.empty()) return;
    const Text address = Text(Endpoints::kSearch) + words;
    const Privacy privacy = context.tabs.PrivacyOf(context.menuView);
    auto* opened = context.tabs.GetNewBrowser(context.tabs.PlaceFor(NewWindowPlace::AsSet), privacy);
    if (opened) ResumeNext(opened->Navigate(address));
}

void SaveSelectedLinks(CommandContext& context) {
    auto* tools = Tools(context, context.menuView);
    if (!tools) return;
    const bool isPrivate = context.tabs.PrivacyOf(context.menuView) == Privacy::Private;
    tools->FindSelectedLinks([&context, isPrivate](const std::vector<Text>& links) {
        std::vector<Text> pages;
        for (const Text& link : links) {
            const bool isPage = TrustOf(link, LinkSource::Group) == LinkTrust::Open;
            if (isPage && std::ranges::find(pages, link) == pages.end()) pages.push_back(link);
        }
        if (pages.empty()) return context.tabs.Say(u"No link to a page is selected.");
        if (isPrivate &&
            !context.messages.AskOwn({u"The links are in a private tab", u"The TessaGroup would keep their addresses.",
                                      Text(kCancelButton), u"&Save Them"}))
            return;
        const Text file = CollectionCommands::AskForNewGroup(context, u"Save Selected Links as TessaGroup");
        if (file.empty()) return;
        context.groups.SaveAddresses(file, pages);
        context.groupsMenuStale = true;
    });
}

void OpenSelectedLinks(CommandContext& context) {
    const std::int32_t index = context.menuView;
    auto* tools = Tools(context, index);
    if (!tools) return;
    tools->FindSelectedLinks([&context, index](std::vector<Text> links) {
        const auto* view = context.tabs.OpenView(index);
        if (!view) return;
        const Text page = view->Control->LocationURL();
        std::erase_if(links, [&](const Text& link) { return !MayOpenFromPage(page, link); });
        if (links.size() > kMostLinks) links.resize(kMostLinks);
        const Text count = Decimal(static_cast<std::int64_t>(links.size()));
        if (links.size() > kManyLinks &&
            !context.messages.AskOwn({u"Open " + count + u" tabs?", {}, Text(kCancelButton), u"&Open Them All"}))
            return;
        const TabToOpen behind{InFront::No, context.tabs.PrivacyOf(index)};
        // Each new tab stands right of the selected one, so the last is opened first.
        for (auto link = links.rbegin(); link != links.rend(); ++link) OpenInTab(context, index, *link, behind);
    });
}

void ReplaceWord(CommandContext& context, const Tool& tool) {
    if (auto* tools = Tools(context, context.menuView)) ResumeNext(tools->ReplaceWord(PlainCaption(tool.Caption())));
}

void Run(CommandContext& context, const Tool& tool) {
    auto* tools = Tools(context, context.menuView);
    for (const Action& each : kActions) {
        if (tools && tool.Name() == each.tool) ResumeNext(tools->Run(each.action));
    }
}

} // namespace PageMenu

} // namespace tessa
