#include "commands/TabMoreCommands.h"

#include "bar/ToolName.h"
#include "commands/ChosenCommands.h"

#include <algorithm>

namespace tessa {

namespace {

// Pinned tabs stay.
void CloseFrom(CommandContext& context, std::size_t first, const std::vector<std::int32_t>& kept) {
    auto& strip = context.pcPage;
    std::vector<std::int32_t> closed;
    for (std::size_t position = strip.Count(); position >= first; --position) {
        const auto* tab = strip.FindAt(position);
        const bool stays = tab->Pinned() || std::ranges::find(kept, tab->Tag) != kept.end();
        if (!stays) closed.push_back(tab->Tag);
    }
    context.tabs.CloseTabs(closed);
}

} // namespace

namespace TabMoreCommands {

void CloseOthers(CommandContext& context) {
    auto* kept = context.strip.PopupTab();
    if (!kept) return;
    const auto all = ChosenCommands::OfPopup(context);
    context.pcPage.Select(kept);
    CloseFrom(context, 1, all);
}

void CloseToTheRight(CommandContext& context) {
    if (const auto* tab = context.strip.PopupTab()) CloseFrom(context, context.strip.PopupTabPosition + 1, {tab->Tag});
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

void ShowState(CommandContext& context) {
    const std::size_t kept = ChosenCommands::OfPopup(context).size();
    context.actBar.Enable(u"xtrTabCloseOthers"_tool, context.pcPage.Count() > std::max<std::size_t>(kept, 1));
    context.actBar.Enable(u"xtrTabCloseRight"_tool, context.strip.PopupTabPosition < context.pcPage.Count());
    ChosenCommands::ShowPopupState(context);
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
