// The list of tabs at the side with 1,000 tabs: what opening it, typing into its filter and a change of the tabs cost,
// from the user's hand to the painted list.
#include "qt/tabpanel/TabPanel.h"
#include "tests/fakes/BareTabs.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <benchmark/benchmark.h>

namespace tessa::qt {

namespace {

constexpr int kTabs = 1000;
constexpr double kOpening = 50.0, kFrame = 16.0; // milliseconds

struct BenchIcons final : TabIcons {
    [[nodiscard]] QIcon IconOf(const Tab&) const override { return {}; }
};

class Desk : public BareTabs {
public:
    explicit Desk(int count = kTabs) {
        StartWithTabs(count);
        for (int index = 1; index <= count; ++index) {
            views.At(index).name = u"The title of page " + Decimal(index) + u", and what else there is to say of it";
            views.At(index).location = u"https://host" + Decimal(index) + u".example/a/path/to/page.html";
        }
        window.setCentralWidget(new QWidget);
        window.resize(1200, 900);
        window.show();
        QCoreApplication::processEvents();
    }
    void Open() {
        form.Form.Visible = true;
        Paint();
    }
    void Close() {
        form.Form.Visible = false;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    void Paint() {
        QCoreApplication::processEvents();
        window.findChild<TabPanelView*>()->viewport()->repaint();
    }

    QMainWindow window;
    TabChoice choice{pcPage};
    TabGroups groups{tabs, pcPage, Browser};
    frmTabPanel form{{pcPage, Browser, tabs, choice, groups}};
    BenchIcons icons;
    TabPanel panel{form, icons, window};
};

void OpenThePanel(benchmark::State& state) {
    Desk desk(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        desk.Open();
        state.PauseTiming();
        desk.Close();
        state.ResumeTiming();
    }
}

// Each key is one step: letters that leave ever fewer tabs, and back.
void FilterByAKey(benchmark::State& state) {
    Desk desk;
    desk.Open();
    auto* filter = desk.window.findChild<QLineEdit*>();
    const QString words = QStringLiteral("page 77 exam");
    qsizetype typed = 0;
    for (auto _ : state) {
        typed = typed == words.size() ? 0 : typed + 1;
        filter->setText(words.left(typed));
        desk.Paint();
    }
}

void SelectATab(benchmark::State& state) {
    Desk desk;
    desk.Open();
    std::size_t turn = 0;
    for (auto _ : state) {
        desk.pcPage.UserClick(desk.pcPage.FindAt(++turn % 2 == 0 ? 3 : kTabs - 3));
        desk.Paint();
    }
}

void ChooseAllTabs(benchmark::State& state) {
    Desk desk;
    desk.Open();
    for (auto _ : state) {
        desk.choice.Any() ? desk.choice.End() : desk.choice.All();
        desk.Paint();
    }
}

void MoveATab(benchmark::State& state) {
    Desk desk;
    desk.Open();
    std::size_t turn = 0;
    for (auto _ : state) {
        const std::size_t from = ++turn % 2 == 0 ? 3 : kTabs - 3;
        desk.pcPage.Move(desk.pcPage.FindAt(from), kTabs - from);
        desk.Paint();
    }
}

/// Says which of the numbers are too large.
class Judge : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            const bool opens = run.benchmark_name().find("OpenThePanel") != std::string::npos;
            slow = slow || run.GetAdjustedRealTime() > (opens ? kOpening : kFrame);
        }
    }
    bool slow = false;
};

BENCHMARK(OpenThePanel)->Arg(10)->Arg(kTabs)->Unit(benchmark::kMillisecond);
BENCHMARK(FilterByAKey)->Unit(benchmark::kMillisecond);
BENCHMARK(SelectATab)->Unit(benchmark::kMillisecond);
BENCHMARK(ChooseAllTabs)->Unit(benchmark::kMillisecond);
BENCHMARK(MoveATab)->Unit(benchmark::kMillisecond);

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
