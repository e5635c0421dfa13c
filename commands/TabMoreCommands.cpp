#include "commands/TabMoreCommands.h"

#include "bar/ToolName.h"

namespace tessa {

namespace {

// Pinned tabs stay.
void CloseFrom(CommandContext& context, std::size_t first, const Tab* kept) {
    auto& strip = context.pcPage;
    std::vector<std::int32_t> closed;
    for (std::size_t position = strip.Count(); position >= first; --position) {
        const auto* tab = strip.FindAt(position);
        if (tab != kept && !tab->Pinned()) closed.push_back(tab->Tag);
    }
    context.tabs.CloseTabs(closed);
}

} // namespace

namespace TabMoreCommands {

void CloseOthers(CommandContext& context) {
    auto* kept = context.strip.PopupTab();
    if (!kept) return;
    context.pcPage.Select(kept);
    CloseFrom(context, 1, kept);
}

void CloseToTheRight(CommandContext& context) {
    const auto* tab = context.strip.PopupTab();
    if (tab) CloseFrom(context, context.strip.PopupTabPosition + 1, tab);
}

void Duplicate(CommandContext& context) {
    const auto* view = context.strip.PopupView();
    auto* tab = context.strip.PopupTab();
    if (!view) return;
    const Text address = view->Control->LocationURL();
    const std::string history = view->Control->History();
    const Privacy privacy = view->Privacy;
    context.pcPage.Select(tab);
    if (auto* copy = context.tabs.GetNewBrowser(InFront::Yes, privacy)) ResumeNext(copy->Restore(history, address));
}

void Reopen(CommandContext& context) { context.closed.Reopen(); }

void Mute(CommandContext& context) {
    if (auto* view = context.strip.PopupView()) view->Control->SetMuted(!view->Control->Muted());
}

void CopyAddress(CommandContext& context) {
    if (const auto* view = context.strip.PopupView()) context.input.Copy(view->Control->LocationURL());
}

void ShowState(CommandContext& context) {
    const auto* view = context.strip.PopupView();
    context.actBar.Enable(u"xtrTabCloseOthers"_tool, context.pcPage.Count() > 1);
    context.actBar.Enable(u"xtrTabCloseRight"_tool, context.strip.PopupTabPosition < context.pcPage.Count());
    if (auto* mute = context.actBar.Find(u"xtrTabMute"_tool)) mute->Checked = view && view->Control->Muted();
}

void ShowReopen(CommandContext& context) {
    const std::size_t next = context.closed.Next();
    context.actBar.Enable(u"xtrReopenTab"_tool, next > 0);
    auto* tool = context.actBar.Find(u"xtrReopenTab"_tool);
    if (!tool) return;
    tool->Caption =
        next > 1 ? u"&Reopen " + Decimal(static_cast<std::int64_t>(next)) + u" Tabs" : Text(u"&Reopen Closed Tab");
}

} // namespace TabMoreCommands

} // namespace tessa
