#include "qt/bar/CommandBarView.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QToolBar>
#include <QWidget>
#include <benchmark/benchmark.h>

namespace tessa::qt {

namespace {

constexpr int kEntries = 10000;

void Fill(Band& band) {
    for (int i = 0; i < kEntries; ++i) {
        Tool* tool = band.Add(MadeFrom::FavoriteLink{}, 50000 + i, u"https://page" + Decimal(i) + u".example/");
        tool->Caption = u"Page " + Decimal(i);
    }
}

/// A window with a menu of 10,000 entries and a button.
struct Desk {
    Desk() {
        bar.Add(std::make_unique<Tool>(1, u"mnuFavorites", u"F&avorites"))->SubBand = u"bndFavorites";
        bar.Add(std::make_unique<Tool>(2, u"mnuRefresh", u"&Refresh"));
        bar.AddBand(u"bndMenu", u"Menu Bar", BandKind::MenuBar)->Append(bar.Share(u"mnuFavorites"));
        bar.AddBand(u"bndGo", u"Go", BandKind::Toolbar)->Append(bar.Share(u"mnuRefresh"));
        bar.AddBand(u"bndFavorites", u"Favorites", BandKind::Menu);
        shown = std::make_unique<CommandBarView>(bar, window);
        window.setCentralWidget(new QWidget);
        window.resize(900, 500);
        window.show();
        QApplication::processEvents();
    }

    QMenu& Favorites() { return *window.menuBar()->actions().constFirst()->menu(); }

    CommandBar bar;
    QMainWindow window;
    std::unique_ptr<CommandBarView> shown;
};

void BuildTheMenu(benchmark::State& state) {
    for (auto _ : state) {
        CommandBar bar;
        Fill(*bar.AddBand(u"bndFavorites", u"", BandKind::Menu));
    }
}

// From the choice of the menu until it has been painted.
void OpenTheMenu(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto desk = std::make_unique<Desk>();
        QMenu& menu = desk->Favorites();
        Fill(*desk->bar.FindBand(u"bndFavorites"));
        state.ResumeTiming();
        menu.popup(desk->window.mapToGlobal(QPoint(10, 20)));
        menu.repaint();
        state.PauseTiming();
        desk.reset();
        state.ResumeTiming();
    }
}

// All its entries are others than before.
void OpenTheMenuChanged(benchmark::State& state) {
    Desk desk;
    Band& band = *desk.bar.FindBand(u"bndFavorites");
    QMenu& menu = desk.Favorites();
    for (auto _ : state) {
        state.PauseTiming();
        menu.hide();
        QApplication::processEvents();
        band.Clear();
        Fill(band);
        state.ResumeTiming();
        menu.popup(desk.window.mapToGlobal(QPoint(10, 20)));
        menu.repaint();
    }
}

void OpenTheMenuAgain(benchmark::State& state) {
    Desk desk;
    Fill(*desk.bar.FindBand(u"bndFavorites"));
    QMenu& menu = desk.Favorites();
    for (auto _ : state) {
        menu.popup(desk.window.mapToGlobal(QPoint(10, 20)));
        menu.repaint();
        state.PauseTiming();
        menu.hide();
        state.ResumeTiming();
    }
}

// From the pointer's press and release until the program is told.
void ClickATool(benchmark::State& state) {
    Desk desk;
    int clicks = 0;
    desk.bar.Click.ConnectForLife([&](Tool&) { ++clicks; });
    QToolBar* bar = desk.shown->ToolBar(u"bndGo");
    QWidget* button = bar->widgetForAction(bar->actions().constFirst());
    const QPointF at(5, 5), global = button->mapToGlobal(at);
    for (auto _ : state) {
        QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(button, &press);
        QApplication::sendEvent(button, &release);
    }
    if (clicks != static_cast<int>(state.iterations())) state.SkipWithError("a click did not arrive");
}

BENCHMARK(BuildTheMenu)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenTheMenu)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenTheMenuChanged)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenTheMenuAgain)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickATool)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tessa::qt

int main(int argc, char** argv) {
    using namespace tessa::qt;
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
