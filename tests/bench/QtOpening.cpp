// How long a window takes from the user's wish until it is painted: the menu of very many Favorites, and the editor of
// a very long TessaGroup.

#include "favorites/Favorites.h"
#include "qt/bar/CommandBarView.h"
#include "qt/dialogs/GroupEditor.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <benchmark/benchmark.h>
#include <string>

namespace tessa::qt {

namespace {

struct Silent final : MessageBoxes {
    Answer AskYesNoCancel(TextView) override { return Answer::Yes; }
    Answer AskOwnOrCancel(const OwnQuestion&) override { return Answer::Yes; }
    bool AskOwn(const OwnQuestion&) override { return true; }
    void Inform(TextView) override {}
};

/// 10,000 shortcuts in 500 folders.
const TemporaryFolder& Favorites10000() {
    static const TemporaryFolder folder;
    static bool filled = [] {
        for (int i = 0; i < 500; ++i) {
            const std::string name = "folder " + std::to_string(i);
            std::filesystem::create_directory(folder.Path(name));
            for (int j = 0; j < 20; ++j)
                folder.Write(name + "/page " + std::to_string(j) + ".url",
                             "[InternetShortcut]\r\nURL=http://127.0.0.1/" + std::to_string(j) + "\r\n");
        }
        return true;
    }();
    benchmark::DoNotOptimize(filled);
    return folder;
}

void OpenFavoritesMenu(benchmark::State& state) {
    const Text root = Favorites10000().PathText(".");
    for (auto _ : state) {
        state.PauseTiming();
        CommandBar bar;
        bar.Add(std::make_unique<Tool>(1, u"mnuFavorites", u"F&avorites"))->SubBand = u"bndFavorites";
        bar.AddBand(u"bndFavorites", u"Favorites", BandKind::Menu);
        bar.AddBand(u"bndMenu", u"Menu Bar", BandKind::MenuBar)->Append(bar.Share(u"mnuFavorites"));
        Favorites::Menu favorites(bar);
        bar.BandOpen.ConnectForLife([&](Band& band) {
            auto first = BeginGroup::No;
            if (band.Name() == u"bndFavorites") favorites.ScanFolder(root, band, first);
        });
        QMainWindow window;
        auto shown = std::make_unique<CommandBarView>(bar, window);
        window.show();
        QApplication::processEvents();
        QMenu* menu = window.menuBar()->actions().constFirst()->menu();
        state.ResumeTiming();
        menu->popup({});
        QApplication::processEvents();
        state.PauseTiming();
        if (menu->actions().size() != 500) state.SkipWithError("the menu does not show all folders");
        menu->close();
        shown.reset();
        state.ResumeTiming();
    }
}

void OpenEditor(benchmark::State& state) {
    const TemporaryFolder folder;
    std::string bytes = "[TessaGroup]\r\n";
    for (int i = 1; i <= 2000; ++i)
        bytes += "url" + std::to_string(i) + "=http://127.0.0.1/page/" + std::to_string(i) + "\r\n";
    folder.Write("long.tvg", bytes);
    Silent messages;
    FakeForms forms;
    for (auto _ : state) {
        frmTessaGroup form(messages, forms);
        form.EditTessaGroup(folder.PathText("long.tvg"));
        GroupEditor editor(form);
        editor.show();
        QApplication::processEvents();
        if (form.lstUrls.ListCount() != 2000) state.SkipWithError("the editor does not show all addresses");
    }
}

BENCHMARK(OpenFavoritesMenu)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenEditor)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tessa::qt

int main(int argc, char** argv) {
    using namespace tessa::qt;
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
