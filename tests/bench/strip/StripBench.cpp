// The tab strip with 500 tabs: what each thing that a person or a page does to it costs, from the model to the painted
// row. A frame has 16 ms.
#include "qt/strip/TabStripView.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace tessa::qt {

namespace {

constexpr int kTabs = 500;
constexpr double kFrame = 16.0; // milliseconds

class Strip {
public:
    Strip() {
        for (int i = 1; i <= kTabs; ++i) Add(0);
        m_widget.resize(1000, m_widget.RowHeight().value);
        m_widget.show();
        Paint();
    }
    Tab* Add(std::size_t position) {
        Tab* tab = model.Add(position, u"Tab" + Decimal(++m_last));
        tab->Tag = m_last;
        model.SetCaption(tab, u"The title of page " + Decimal(m_last));
        return tab;
    }
    /// Does the layout that is due and paints the whole row.
    void Paint() {
        benchmark::DoNotOptimize(m_widget.TabPlace(1));
        benchmark::DoNotOptimize(m_widget.grab());
    }
    TabStrip model;

private:
    TabStripView m_widget{model};
    std::int32_t m_last = 0;
};

// The far one of two that are far apart, in turn: each scrolls the row from end to end.
std::size_t FarAway(std::size_t& turn) { return ++turn % 2 == 0 ? 3 : kTabs - 3; }

void Select(benchmark::State& state) {
    Strip strip;
    std::size_t turn = 0;
    for (auto _ : state) {
        strip.model.UserClick(strip.model.FindAt(FarAway(turn)));
        strip.Paint();
    }
}

void Close(benchmark::State& state) {
    Strip strip;
    for (auto _ : state) {
        strip.model.Remove(strip.model.FindAt(kTabs / 2));
        strip.Paint();
        state.PauseTiming();
        strip.Add(kTabs / 2);
        strip.Paint();
        state.ResumeTiming();
    }
}

void Reorder(benchmark::State& state) {
    Strip strip;
    std::size_t turn = 0;
    for (auto _ : state) {
        const std::size_t from = FarAway(turn);
        strip.model.Move(strip.model.FindAt(from), kTabs - from);
        strip.Paint();
    }
}

void CaptionChange(benchmark::State& state) {
    Strip strip;
    strip.model.UserClick(strip.model.FindAt(1));
    std::int64_t count = 0;
    for (auto _ : state) {
        strip.model.SetCaption(strip.model.FindAt(2), u"Another title " + Decimal(++count));
        strip.Paint();
    }
}

/// Says which of the numbers miss the frame.
class Judge : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) slow = slow || run.GetAdjustedRealTime() > kFrame;
    }
    bool slow = false;
};

BENCHMARK(Select)->Unit(benchmark::kMillisecond);
BENCHMARK(Close)->Unit(benchmark::kMillisecond);
BENCHMARK(Reorder)->Unit(benchmark::kMillisecond);
BENCHMARK(CaptionChange)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tessa::qt

int main(int argc, char** argv) {
    using namespace tessa::qt;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    Judge judge;
    benchmark::RunSpecifiedBenchmarks(&judge);
    return judge.slow ? 1 : 0;
}
