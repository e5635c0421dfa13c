#include "address/BoxHistories.h"

#include "bar/ToolName.h"

namespace tessa {

namespace {

enum class EmptyEntries : bool { LeftOut, Kept };

void RestoreHistory(ComboTool* box, std::vector<Text> history, EmptyEntries empty) {
    // Deliberate: a history that was stored with a single entry is not restored.
    if (!box || history.size() < 2) return;
    if (empty == EmptyEntries::LeftOut) std::erase(history, Text());
    box->List = std::move(history);
}

std::vector<Text> HistoryOf(const ComboTool* box) { return box ? box->List() : std::vector<Text>(); }

} // namespace

namespace BoxHistories {

void Restore(const CommandBar& actBar, const SettingsStore& store) {
    RestoreHistory(actBar.FindCombo(u"cboAddress"_tool), store.AddressHistory.Get(), EmptyEntries::Kept);
    RestoreHistory(actBar.FindCombo(u"cboSearch"_tool), store.SearchHistory.Get(), EmptyEntries::LeftOut);
}

void Save(SettingsStore& store, const CommandBar& actBar) {
    ResumeNext(store.SearchHistory.Set(HistoryOf(actBar.FindCombo(u"cboSearch"_tool))));
    ResumeNext(store.AddressHistory.Set(HistoryOf(actBar.FindCombo(u"cboAddress"_tool))));
}

void Forget(const CommandBar& actBar, SettingsStorageFactory& settings) {
    for (const ToolName box : {u"cboAddress"_tool, u"cboSearch"_tool}) {
        if (auto* combo = actBar.FindCombo(box)) combo->Clear();
    }
    SettingsStore store(settings);
    ResumeNext(store.AddressHistory.Set({}));
    ResumeNext(store.SearchHistory.Set({}));
}

} // namespace BoxHistories

} // namespace tessa
