// Holds recorded requests against filter lists.
//   blocking [--time] [--rules] LIST... < REQUESTS
// A line of requests is its type, the page and the address, with a tab between each. For each a line "1" is printed
// when it would be stopped, else "0". --rules prints the rule and the exception behind it; --time prints the
// microseconds that a request took, on average, at the end.

#include "base/os/AtomicFile.h"
#include "blocking/RuleCompiler.h"
#include "blocking/RuleSet.h"
#include "blocking/RuleText.h"

#include <chrono>
#include <cstdio>
#include <iostream>
#include <iterator>

namespace {

using tessa::ReadWholeFile;
using tessa::RuleSet;
using tessa::ruletext::TakePart;

struct Recorded {
    tessa::RequestType type;
    std::string_view page, address;
};

// Recorders that know no web sockets write down a fetch, or something else. Of its address they have no more than the
// scheme, as it reaches a server: that of the handshake. Of what is no fetch a scheme alone stays what it is.
bool IsSocketOfOldRecords(const Recorded& request) {
    using tessa::RequestType;
    return (request.type == RequestType::Other || request.type == RequestType::Xhr) &&
           (request.address == "http://" || request.address == "https://");
}

std::vector<Recorded> RequestsIn(std::string_view text) {
    std::vector<Recorded> all;
    while (!text.empty()) {
        std::string_view line = TakePart(text, '\n');
        if (line.empty()) continue;
        const std::string_view type = TakePart(line, '\t'), page = TakePart(line, '\t');
        while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        all.push_back({tessa::RecordedTypeOf(type), page, line});
        if (IsSocketOfOldRecords(all.back()))
            all.back().type = tessa::RequestType::WebSocket, all.back().address = "ws://";
    }
    return all;
}

std::optional<RuleSet> Read(const std::vector<std::string>& lists) {
    tessa::RuleCompiler compiler;
    for (const std::string& each : lists) {
        const auto bytes = ReadWholeFile(each);
        if (!bytes) {
            std::fprintf(stderr, "%s cannot be read\n", each.c_str());
            return std::nullopt;
        }
        compiler.AddList(*bytes);
    }
    return RuleSet(*tessa::RuleImage::Read(compiler.Image(0), 0));
}

std::string LineOf(const std::optional<tessa::RuleFound>& found) {
    return found ? std::string(found->Line) : std::string();
}

/// Of requests of one page the page is looked at once.
class Judge {
public:
    explicit Judge(const RuleSet& rules) : m_rules(rules) {}
    tessa::RuleVerdict VerdictOn(const Recorded& request) {
        if (m_address != request.page) m_page = m_rules.PageOf(request.page);
        m_address = request.page;
        return m_rules.VerdictOn(request.address, m_page, request.type);
    }

private:
    const RuleSet& m_rules;
    std::string_view m_address;
    tessa::RulePage m_page;
};

void Print(const std::vector<Recorded>& requests, const RuleSet& rules, bool withRules) {
    std::string all;
    Judge judge(rules);
    for (const Recorded& each : requests) {
        const auto verdict = judge.VerdictOn(each);
        all += verdict.Blocked ? '1' : '0';
        if (withRules) all += '\t' + LineOf(verdict.By) + '\t' + LineOf(verdict.Exception);
        all += '\n';
    }
    std::fwrite(all.data(), 1, all.size(), stdout);
}

void PrintTime(const std::vector<Recorded>& requests, const RuleSet& rules) {
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    std::size_t blocked = 0;
    Judge judge(rules);
    for (const Recorded& each : requests) blocked += judge.VerdictOn(each).Blocked ? 1 : 0;
    const std::chrono::duration<double, std::micro> passed = Clock::now() - begin;
    std::printf("%.2f microseconds a request, %zu of %zu stopped\n",
                requests.empty() ? 0 : passed.count() / static_cast<double>(requests.size()), blocked, requests.size());
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> lists(argv + 1, argv + argc);
    const bool time = std::erase(lists, "--time") > 0, withRules = std::erase(lists, "--rules") > 0;
    if (lists.empty()) {
        std::fputs("usage: blocking [--time] [--rules] LIST... < REQUESTS\n", stderr);
        return 2;
    }
    const auto rules = Read(lists);
    if (!rules) return 1;
    const std::string text{std::istreambuf_iterator<char>(std::cin), {}};
    const std::vector<Recorded> requests = RequestsIn(text);
    Print(requests, *rules, withRules);
    if (time) PrintTime(requests, *rules);
}
