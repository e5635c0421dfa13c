#include "favorites/Favorites.h"
#include "tests/fakes/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <string>

namespace tessa {

namespace {

constexpr int kFolders = 500, kInEach = 20;

/// 10,000 shortcuts in 500 folders.
class Many {
public:
    Many() {
        for (int i = 0; i < kFolders; ++i) {
            const std::string name = "folder " + std::to_string(i);
            std::filesystem::create_directory(m_folder.Path(name));
            for (int j = 0; j < kInEach; ++j)
                m_folder.Write(name + "/page " + std::to_string(j) + ".url",
                               "[InternetShortcut]\r\nURL=http://127.0.0.1/" + std::to_string(j) + "\r\n");
        }
    }
    [[nodiscard]] Text Path(const std::string& below) const { return m_folder.PathText(below); }

private:
    TemporaryFolder m_folder;
};

const Many& Favorites10000() {
    static const Many many;
    return many;
}

void Open(benchmark::State& state, const Text& folder) {
    for (auto _ : state) {
        CommandBar bar;
        Band* band = bar.AddBand(u"bndFavorites", u"", BandKind::Menu);
        Favorites::Menu menu(bar);
        auto first = BeginGroup::Yes;
        menu.ScanFolder(folder, *band, first);
        benchmark::DoNotOptimize(band->Entries().size());
    }
}

void OpenTheMenu(benchmark::State& state) { Open(state, Favorites10000().Path(".")); }
void OpenOneFolder(benchmark::State& state) { Open(state, Favorites10000().Path("folder 7")); }

BENCHMARK(OpenTheMenu)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenOneFolder)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tessa
