#include "commands/effects/ReadingCommands.h"

#include "bar/ToolName.h"
#include "commands/effects/SeveralTabs.h"
#include "commands/effects/TabCommands.h"
#include "history/ReadPages.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

Text PlaceWords(std::size_t place, std::size_t all) {
    if (all == 1) return u"There is one new passage.";
    return u"New passage " + Decimal(static_cast<std::int64_t>(place)) + u" of " +
           Decimal(static_cast<std::int64_t>(all)) + u".";
}

void ShowNewsOf(CommandContext& context, std::int32_t index) {
    const auto* page = context.reads->Find(index);
    if (!page || !page->WasReadBefore)
        return context.tabs.Say(u"What is new on this page is not known: it was not read and remembered before.");
    const std::size_t all = page->News.New.size();
    if (all == 0) return context.tabs.Say(u"Nothing is new on this page since you read it.");
    const std::size_t place = context.reads->ShowNextNews(index);
    if (place > 0) context.tabs.Say(PlaceWords(place, all));
}

// A pinned tab stays, and so does what holds something of its user's, or does something that would be lost.
bool Stays(const CommandContext& context, std::int32_t index) {
    const ArrayView* view = context.tabs.OpenView(index);
    const Tab* tab = TabOfView(context.pcPage, index);
    if (!view || !tab || tab->Pinned()) return true;
    auto* life = view->Control->Life();
    if (!life || life->Asleep()) return false;
    const PageActivity activity = life->Activity();
    return activity.HoldsInput || activity.Audible || activity.Downloads || activity.Asks;
}

// Where all are closed a blank tab takes their place, for without any the program would end.
void CloseAmong(CommandContext& context, std::vector<std::int32_t> indexes, TextView none) {
    std::erase_if(indexes, [&](std::int32_t index) { return Stays(context, index); });
    if (indexes.empty()) return context.tabs.Say(none);
    const auto count = static_cast<std::int64_t>(indexes.size());
    if (indexes.size() == context.pcPage.Count()) TabCommands::NewBlank(context);
    SeveralTabs::Close(context, std::move(indexes));
    SeveralTabs::SayClosed(context, count == 1 ? Text(u"One tab was closed.") : Decimal(count) + u" tabs were closed.");
}

} // namespace

namespace ReadingCommands {

void ShowWhatIsNew(CommandContext& context) { ShowNewsOf(context, context.tabs.CurrentIndex()); }

void TabShowWhatIsNew(CommandContext& context) {
    Tab* tab = context.strip.PopupTab();
    if (!tab) return;
    const std::int32_t index = tab->Tag;
    context.pcPage.Select(tab);
    ShowNewsOf(context, index);
}

void NextUnread(CommandContext& context) {
    const auto round = context.reads->Round();
    const std::int32_t front = context.tabs.CurrentIndex();
    const std::int32_t next = ReadingRound::Next(round, front);
    if (next == 0) return context.tabs.Say(u"No page is left to read.");
    for (std::size_t position = 1; position <= context.pcPage.Count(); ++position) {
        Tab* tab = context.pcPage.FindAt(position);
        if (tab->Tag != next) continue;
        context.pcPage.Select(tab);
        break;
    }
    context.tabs.Say(ReadingRound::WordsFor(ReadingRound::CountLeft(round, next)));
}

void CloseWithoutNews(CommandContext& context) {
    CloseAmong(context, context.reads->WithoutNews(), u"There is no tab of which it is known that nothing is new.");
}

void CloseRead(CommandContext& context) { CloseAmong(context, context.reads->Read(), u"No tab was read yet."); }

void ShowState(CommandContext& context) {
    const Tab* tab = context.strip.PopupTab();
    const auto* page = tab ? context.reads->Find(tab->Tag) : nullptr;
    context.actBar.Enable(u"xtrTabShowWhatIsNew"_tool, page && page->News.Any());
    context.actBar.Enable(u"xtrTabCloseWithoutNews"_tool, !context.reads->WithoutNews().empty());
    context.actBar.Enable(u"xtrTabCloseRead"_tool, !context.reads->Read().empty());
}

} // namespace ReadingCommands

} // namespace tessa
