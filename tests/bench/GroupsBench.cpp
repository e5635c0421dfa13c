#include "groups/TessaGroups.h"
#include "groups/frmTessaGroup.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <string>

namespace tessa {

namespace {

std::string GroupOf(int addresses) {
    std::string bytes = "[TessaGroup]\r\n";
    for (int i = 1; i <= addresses; ++i)
        bytes += "url" + std::to_string(i) + "=http://127.0.0.1/page/" + std::to_string(i) + "\r\n";
    return bytes;
}

/// 1,000 groups of ten addresses in one folder.
const TemporaryFolder& Groups1000() {
    static const TemporaryFolder folder;
    static bool filled = [] {
        for (int i = 0; i < 1000; ++i) folder.Write("group " + std::to_string(i) + ".tvg", GroupOf(10));
        return true;
    }();
    benchmark::DoNotOptimize(filled);
    return folder;
}

/// One group of 2,000 addresses.
class Long {
public:
    Long() { m_folder.Write("long.tvg", GroupOf(2000)); }
    [[nodiscard]] Text Path() const { return m_folder.PathText("long.tvg"); }

private:
    TemporaryFolder m_folder;
};

struct Silent final : MessageBoxes {
    Answer AskYesNoCancel(TextView) override { return Answer::Yes; }
    Answer AskOwnOrCancel(const OwnQuestion&) override { return Answer::Yes; }
    bool AskOwn(const OwnQuestion&) override { return true; }
    void Inform(TextView) override {}
};

void ListGroups(benchmark::State& state) {
    const Text folder = Groups1000().PathText("");
    for (auto _ : state) {
        Band band(u"bndTessaGroupsMenu", u"TessaGroups", BandKind::Menu);
        std::int32_t nextId = 0;
        TessaGroups::FillBand(band, folder, {}, nextId);
        benchmark::DoNotOptimize(band.Entries().size());
    }
}

void LoadGroup(benchmark::State& state) {
    const Long group;
    for (auto _ : state) benchmark::DoNotOptimize(TessaGroups::Load(group.Path()).Count());
}

void FillEditor(benchmark::State& state) {
    const Long group;
    Silent messages;
    FakeForms forms;
    for (auto _ : state) {
        frmTessaGroup form(messages, forms);
        form.EditTessaGroup(group.Path());
        benchmark::DoNotOptimize(form.lstUrls.ListCount());
    }
}

void SaveEditor(benchmark::State& state) {
    const Long group;
    Silent messages;
    FakeForms forms;
    for (auto _ : state) {
        frmTessaGroup form(messages, forms);
        form.EditTessaGroup(group.Path());
        form.cmdOK.Click();
    }
}

BENCHMARK(ListGroups)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadGroup)->Unit(benchmark::kMillisecond);
BENCHMARK(FillEditor)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveEditor)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tessa
