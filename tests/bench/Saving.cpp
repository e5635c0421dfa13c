// What saving costs with 500 open tabs: at the end of a session, and after each change meanwhile. Real files and a
// real disk; what the engine would be asked is answered at once.
#include "qt/base/Strings.h"
#include "qt/desktop/DiskLayoutFile.h"
#include "qt/desktop/DiskSessionFiles.h"
#include "qt/desktop/DiskSettingsStorage.h"
#include "tests/fakes/FakeSurroundings.h"
#include "tests/fakes/FakeViews.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>
#include <chrono>
#include <optional>

namespace tessa::qt {

namespace {

constexpr int kTabs = 500;
using Clock = std::chrono::steady_clock;

/// A window with its tabs, as it is when somebody reads.
class Reader : FakeSurroundings {
public:
    Reader() {
        main.Form_Load(u"about:blank");
        main.Form_Activate();
        for (int i = 1; i <= kTabs; ++i) Load(i, u"An article of some length about number " + Decimal(i));
    }

    /// Tab `index` shows a page of that title.
    void Load(int index, const Text& title) {
        if (!views.Has(index)) main.GetNewBrowser(InFront::Yes);
        FakeView& view = views.At(index);
        view.location = u"https://www.news.example/section/today/article-" + Decimal(index) + u"?from=front&page=2";
        view.name = title;
        view.events.TitleChange(static_cast<std::int16_t>(index), title);
    }

    TemporaryFolder folder;
    FakeViews views;
    DiskSettingsStorage storage{ToQt(folder.PathText("."))};
    DiskLayoutFile layoutFile{ToQt(folder.PathText("."))};
    std::optional<DiskSessionFiles> savedSessions{ToQt(folder.PathText("sessions"))};
    frmMain main{Platform(views, {.settings = &storage, .sessions = &*savedSessions, .layout = &layoutFile})};
};

/// From the end of the window until everything is on the disk.
void SaveAtTheEnd(benchmark::State& state) {
    for (auto each : state) {
        Reader reader;
        const auto start = Clock::now();
        reader.main.Form_Unload();
        reader.savedSessions.reset();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}
BENCHMARK(SaveAtTheEnd)->Unit(benchmark::kMillisecond)->UseManualTime();

/// What one change holds up the window for; the disk is written to behind the scenes.
void SaveAfterAChange(benchmark::State& state) {
    Reader reader;
    int changes = 0;
    for (auto each : state) {
        ++changes;
        reader.Load(1 + changes % kTabs, u"News at " + Decimal(changes));
        reader.main.Sessions().Write();
    }
}
BENCHMARK(SaveAfterAChange)->Unit(benchmark::kMillisecond)->Iterations(100);

} // namespace

} // namespace tessa::qt

int main(int argc, char** argv) {
    using namespace tessa::qt;
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
