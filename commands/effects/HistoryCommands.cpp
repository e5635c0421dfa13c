#include "commands/effects/HistoryCommands.h"

#include "address/CabCombo.h"
#include "bar/ToolName.h"

namespace tessa {

namespace {

/// What the entries of a list are called, one and several.
struct EntryWords {
    TextView one, many;
};

void ClearList(CommandContext& context, ToolName box, EntryWords words) {
    auto* combo = context.actBar.FindCombo(box);
    if (!combo) return;
    const std::vector<Text> cleared = combo->List();
    combo->Clear();
    if (cleared.empty()) return context.tabs.Say(u"There were no " + Text(words.many) + u" to clear.");
    const bool one = cleared.size() == 1;
    const Text number = Decimal(static_cast<std::int64_t>(cleared.size()));
    const Text said = number + u' ' + Text(one ? words.one : words.many) + (one ? u" was" : u" were") + u" cleared.";
    context.tabs.Say(said, [&context, box, many = Text(words.many), cleared] {
        CabCombo::PutBack(cleared, context.actBar.FindCombo(box));
        context.tabs.Say(u"The " + many + u" are back in their list.");
    });
}

} // namespace

namespace HistoryCommands {

void ClearAddresses(CommandContext& context) { ClearList(context, u"cboAddress"_tool, {u"address", u"addresses"}); }

void ClearSearches(CommandContext& context) { ClearList(context, u"cboSearch"_tool, {u"search", u"searches"}); }

} // namespace HistoryCommands

} // namespace tessa
