// How long lists take to be read, and requests to be held against them:
//   build/tests/bench/core_bench --benchmark_filter=Blocking
// The lists and requests lie beside the project, in ../shared/data/blocking, unpacked into a folder that
// TESSAVIEW_BLOCKING_DATA names: easylist.txt, easyprivacy.txt, requests.tsv. Without them lists are made up.
//
// What the recorded verdicts differ in from ours, of 15,000:
// - The type of each recorded request ends in a carriage return, so whoever recorded them knew none of the types: rules
//   that name types never counted. Held in the same way, a type that nobody knows, 14,993 verdicts are the same. The
//   other seven are requests of one page that a list excepts as a whole ("@@" with "document"), which the recorder took
//   for a rule about the request alone.
// - With the types as they were meant, 246 more differ, because rules that name types count: 176 requests are stopped
//   that were not, as by "/gpt.js$script", and 70 are let through, as by "@@||adobedtm.com^*/satellite-$script".

#include "base/os/AtomicFile.h"
#include "blocking/CompiledRules.h"
#include "blocking/RuleSet.h"
#include "blocking/RuleText.h"
#include "tests/fakes/TemporaryFolder.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <string>
#include <vector>

namespace tessa {

namespace {

struct BenchRequest {
    std::string_view page, address;
    RequestType type;
};

std::string MadeUpList() {
    std::string list;
    for (int i = 0; i < 50000; ++i) {
        const std::string number = std::to_string(i);
        list += "||ads" + number + ".example^$third-party\n";
        if (i % 2 == 0) list += "##.ad-" + number + "\n";
    }
    return list;
}

std::string MadeUpRequests() {
    std::string requests;
    for (int i = 0; i < 15000; ++i) {
        const std::string number = std::to_string(i);
        requests += "0\tscript\thttps://site.example/\thttps://" + std::string(i % 3 ? "www" : "ads") + number +
                    ".example/some/longer/path/of/files/" + number + ".js?with=parameters&and=" + number + "\t\t\n";
    }
    return requests;
}

/// The lists and the requests.
struct BlockingData {
    BlockingData() {
        const char* folder = std::getenv("TESSAVIEW_BLOCKING_DATA");
        const auto read = [&](const char* name) {
            return folder ? ReadWholeFile(std::string(folder) + "/" + name) : std::nullopt;
        };
        lists = {{{}, read("easylist.txt").value_or(MadeUpList())}, {{}, read("easyprivacy.txt").value_or("")}};
        text = read("requests.tsv").value_or(MadeUpRequests());
        for (std::string_view rest = text; !rest.empty();) {
            std::string_view line = ruletext::TakePart(rest, '\n');
            (void)ruletext::TakePart(line, '\t');
            const std::string_view type = ruletext::TakePart(line, '\t'), page = ruletext::TakePart(line, '\t');
            if (page.starts_with("http"))
                requests.push_back({page, ruletext::TakePart(line, '\t'), RecordedTypeOf(type)});
        }
    }
    std::string text;
    std::vector<ListSource> lists;
    std::vector<BenchRequest> requests;
};

const BlockingData& Data() {
    static const BlockingData data;
    return data;
}

void BlockingReadLists(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(CompileLists(Data().lists, {}).Image.Size());
}

void BlockingReadCache(benchmark::State& state) {
    const TemporaryFolder folder;
    const std::string cache = folder.Path("cache");
    state.counters["bytes"] = static_cast<double>(CompileLists(Data().lists, cache).Image.Size());
    for (auto _ : state) benchmark::DoNotOptimize(CompileLists(Data().lists, cache).FromCache);
}

void BlockingRequests(benchmark::State& state) {
    const RuleSet rules(CompileLists(Data().lists, {}).Image);
    for (auto _ : state) {
        RulePage page;
        std::string_view address;
        std::size_t stopped = 0;
        for (const BenchRequest& each : Data().requests) {
            if (each.page != address) page = rules.PageOf(each.page);
            address = each.page;
            stopped += rules.VerdictOn(each.address, page, each.type).Blocked ? 1 : 0;
        }
        benchmark::DoNotOptimize(stopped);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(Data().requests.size()));
    state.counters["time/request"] =
        benchmark::Counter(static_cast<double>(state.iterations() * Data().requests.size()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// An address as long as that, of words that lists know: those of recorded ones. Scripts of pages make such.
void BlockingLongAddress(benchmark::State& state) {
    const RuleSet rules(CompileLists(Data().lists, {}).Image);
    const RulePage page = rules.PageOf("https://site.example/");
    std::string address = "https://www.other.example/path?";
    for (const BenchRequest& each : Data().requests) {
        if (address.size() >= static_cast<std::size_t>(state.range(0))) break;
        // What is stopped would be found at once.
        const std::string longer = address + std::string(each.address.substr(each.address.find("://") + 3)) + "&";
        if (!rules.VerdictOn(longer, page, RequestType::Image).By) address = longer;
    }
    address.resize(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state) benchmark::DoNotOptimize(rules.VerdictOn(address, page, RequestType::Image).Blocked);
}

BENCHMARK(BlockingReadLists)->Unit(benchmark::kMillisecond);
BENCHMARK(BlockingReadCache)->Unit(benchmark::kMillisecond);
BENCHMARK(BlockingRequests)->Unit(benchmark::kMillisecond);
BENCHMARK(BlockingLongAddress)->Arg(1000)->Arg(2000)->Arg(4000)->Arg(8000)->Arg(32000)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tessa
