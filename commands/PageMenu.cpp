#include "commands/PageMenu.h"

#include "commands/Endpoints.h"
#include "commands/PageMenuEntries.h"
#include "commands/ToolNames.h"
#include "common/AtomicFile.h"
#include "groups/TessaGroups.h"
#include "pages/FileNames.h"
#include "pages/LinkRules.h"
#include "pages/PlainText.h"

#include <array>

namespace {

constexpr std::size_t kShownWords = 24;
constexpr std::size_t kMostWords = 500;
/// So many links open without a question.
constexpr std::size_t kManyLinks = 15;
constexpr std::size_t kMostLinks = 200;
constexpr TextView kReplaceQuestion = u"A file with this name already exists. Do you want to replace it?";
constexpr TextView kPrivateLinkQuestion =
    u"The link is in a private tab. Do you want to write its address into the TessaGroup?";

struct Action {
    TextView tool;
    PageAction action;
};

constexpr std::array kActions{
    Action{u"xtrUndo", PageAction::Undo},
    Action{u"xtrRedo", PageAction::Redo},
    Action{u"xtrPasteAsText", PageAction::PasteAsText},
    Action{u"xtrImageCopy", PageAction::CopyImage},
    Action{u"xtrMediaPlay", PageAction::PlayOrPause},
    Action{u"xtrMediaMute", PageAction::MuteOrNot},
    Action{u"xtrMediaLoop", PageAction::LoopOrNot},
    Action{u"xtrMediaControls", PageAction::ShowControlsOrNot},
    Action{u"xtrInspect", PageAction::Inspect},
};

bool IsPrivate(const CommandContext& context) { return context.tabs.PrivacyOf(context.menuView) == Privacy::Private; }

// The menu belongs to the view in front; when its tab is gone, so is what was asked for.
ArrayView* View(const CommandContext& context) {
    return context.tabs.IsSelected(context.menuView) ? context.tabs.CurrentView() : nullptr;
}

PageTools* Tools(const CommandContext& context) {
    auto* view = View(context);
    return view ? view->Control->Tools() : nullptr;
}

void OpenTab(CommandContext& context, TextView address, InFront inFront, Privacy privacy) {
    const auto* view = View(context);
    if (!view || !MayOpenFromPage(view->Control->LocationURL(), address)) return;
    if (auto* opened = context.tabs.GetNewBrowser(inFront, privacy)) ResumeNext(opened->Navigate(Text(address)));
}

void OpenTab(CommandContext& context, const Text& address, NewWindowPlace place) {
    OpenTab(context, address, context.tabs.PlaceFor(place), context.tabs.PrivacyOf(context.menuView));
}

void SaveAddress(CommandContext& context, const Text& address) {
    if (!Tools(context) || !MaySave(address)) return;
    const Text path =
        context.files.ShowSave({.DialogTitle = u"Save As",
                                .InitDir = context.host.DownloadFolder ? context.host.DownloadFolder() : Text(),
                                .Filter = {},
                                .FileName = FileNameOfAddress(address)});
    if (path.empty()) return;
    if (FileExists(PathToBytes(path)) && context.messages.AskYesNoCancel(kReplaceQuestion) != Answer::Yes) return;
    // The dialogs ran; the page may have gone meanwhile.
    if (auto* tools = Tools(context)) ResumeNext(tools->Save(address, path));
}

void SetCaption(const CommandContext& context, TextView tool, Text caption) {
    if (auto* found = context.actBar.Find(tool)) found->Caption = std::move(caption);
}

void ShowState(const CommandContext& context, const PageContext& page) {
    SetCaption(context, u"xtrLinkOpenOther",
               context.tabs.OpenNewInFront ? u"Open Link &Behind This Tab" : u"Open Link in &Front");
    SetCaption(context, u"xtrSearchSelection",
               u"S&earch for \"" + EscapedCaption(PlainLine(page.SelectedText, kShownWords)) + u"\"");
    const bool image = page.Media == PageContext::Kind::Image;
    SetCaption(context, u"xtrMediaCopyAddress", image ? u"Copy Image &Address" : u"Copy Media &Address");
    SetCaption(context, u"xtrMediaPlay", page.MediaPaused ? u"&Play" : u"&Pause");
    for (const auto& [tool, checked] :
         {std::pair(TextView(u"xtrMediaMute"), page.MediaMuted), std::pair(TextView(u"xtrMediaLoop"), page.MediaLoops),
          std::pair(TextView(u"xtrMediaControls"), page.MediaHasControls)}) {
        if (auto* found = context.actBar.Find(tool)) found->Checked = checked;
    }
}

} // namespace

namespace PageMenu {

void Open(CommandContext& context, std::int32_t index, const PageContext& page) {
    context.menuView = index;
    context.menuPage = page;
    const auto* view = View(context);
    if (!view) return;
    ShowState(context, page);
    auto* band = context.actBar.FindBand(kBand);
    if (!band) band = context.actBar.AddBand(Text(kBand), u"Page", BandKind::Popup);
    band->SetEntries(PageMenuEntries::For(context, page, view->Control->LocationURL()));
    context.actBar.Popup(kBand);
}

void OpenLink(CommandContext& context) { OpenTab(context, context.menuPage.LinkURL, NewWindowPlace::AsSet); }

void OpenLinkOtherWay(CommandContext& context) { OpenTab(context, context.menuPage.LinkURL, NewWindowPlace::OtherWay); }

void OpenLinkPrivate(CommandContext& context) {
    OpenTab(context, context.menuPage.LinkURL, context.tabs.PlaceFor(NewWindowPlace::AsSet), Privacy::Private);
}

void OpenMedia(CommandContext& context) { OpenTab(context, context.menuPage.MediaURL, NewWindowPlace::AsSet); }

void SaveLink(CommandContext& context) { SaveAddress(context, Text(context.menuPage.LinkURL)); }

void SaveMedia(CommandContext& context) { SaveAddress(context, Text(context.menuPage.MediaURL)); }

void CopyLink(CommandContext& context) { context.host.CopyText(context.menuPage.LinkURL); }

void CopyMediaAddress(CommandContext& context) { context.host.CopyText(context.menuPage.MediaURL); }

void AddLinkToTessaGroup(CommandContext& context) {
    const Text link = context.menuPage.LinkURL;
    if (IsPrivate(context) && context.messages.AskYesNoCancel(kPrivateLinkQuestion) != Answer::Yes) return;
    const Text file = context.files.ShowOpen({.DialogTitle = u"Add to TessaGroup",
                                              .InitDir = context.groupFolder,
                                              .Filter = Text(TessaGroups::kFileFilter)});
    if (file.empty()) return;
    context.host.AddToTessaGroup(link, file);
    context.groupsMenuStale = true;
}

void SearchForSelection(CommandContext& context) {
    const auto* view = View(context);
    const Text words = PlainLine(context.menuPage.SelectedText, kMostWords);
    if (!view || words.empty()) return;
    const Text address = Text(Endpoints::kSearch) + words;
    auto* opened =
        context.tabs.GetNewBrowser(context.tabs.PlaceFor(NewWindowPlace::AsSet), context.tabs.CurrentPrivacy());
    if (opened) ResumeNext(opened->Navigate(address));
}

void OpenSelectedLinks(CommandContext& context) {
    auto* tools = Tools(context);
    if (!tools) return;
    tools->FindSelectedLinks([&context](std::vector<Text> links) {
        const auto* view = View(context);
        if (!view) return;
        const Text page = view->Control->LocationURL();
        std::erase_if(links, [&](const Text& link) { return !MayOpenFromPage(page, link); });
        if (links.size() > kMostLinks) links.resize(kMostLinks);
        const Text question = u"Do you want to open " + Decimal(static_cast<std::int64_t>(links.size())) + u" tabs?";
        if (links.size() > kManyLinks && context.messages.AskYesNoCancel(question) != Answer::Yes) return;
        const Privacy privacy = context.tabs.PrivacyOf(context.menuView);
        // Each new tab stands right of the selected one, so the last is opened first.
        for (auto link = links.rbegin(); link != links.rend(); ++link) OpenTab(context, *link, InFront::No, privacy);
    });
}

void ReplaceWord(CommandContext& context, const Tool& tool) {
    if (auto* tools = Tools(context)) ResumeNext(tools->ReplaceWord(PlainCaption(tool.Caption())));
}

void Run(CommandContext& context, const Tool& tool) {
    auto* tools = Tools(context);
    for (const Action& each : kActions) {
        if (tools && tool.Name() == each.tool) ResumeNext(tools->Run(each.action));
    }
}

} // namespace PageMenu
