#include "address/CabCombo.h"

#include <benchmark/benchmark.h>
#include <string>

namespace tessa {

namespace {

/// A history as full as it gets, whose entries differ only where addresses do: at their end.
void FillHistory(ComboTool& box) {
    for (int i = 1; i <= 25; ++i)
        CabCombo::AddFindEntry(u"https://www.news.example/section/today/article-" + Decimal(i), &box, 25);
}

/// From the changed text to the completed one; the entry that fits is the last one looked at.
void KeystrokeToCompletion(benchmark::State& state) {
    ComboTool box(1, u"cboAddress");
    FillHistory(box);
    const Text typed = box.List().back().substr(0, box.List().back().size() - 1) + u"1";
    for (auto each : state) {
        Text previous;
        box.Value = typed;
        box.Selection = TextSelection{typed.size(), 0};
        CabCombo::AutoComplete(previous, box);
        Text completed = box.Value();
        benchmark::DoNotOptimize(completed);
    }
}
BENCHMARK(KeystrokeToCompletion)->Unit(benchmark::kMicrosecond);

void EnterToHistory(benchmark::State& state) {
    ComboTool box(1, u"cboAddress");
    FillHistory(box);
    for (auto each : state) CabCombo::AddFindEntry(Text(box.List().back()), &box, 25);
}
BENCHMARK(EnterToHistory)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tessa
