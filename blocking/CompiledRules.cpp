#include "blocking/CompiledRules.h"

#include "base/ResumeNext.h"
#include "base/os/AtomicFile.h"

namespace tessa {

namespace {

// All lists in memory, one after the other, and the number that says what they are.
struct ReadLists {
    std::vector<std::string> bytes;
    std::vector<bool> missing;
    std::uint64_t fingerprint = 1;
};

ReadLists ReadAll(const std::vector<ListSource>& lists) {
    ReadLists all;
    for (const ListSource& each : lists) {
        std::optional<std::string> bytes = each.Bytes;
        if (!each.Path.empty()) bytes = ReadWholeFile(each.Path, RuleCompiler::kMostListBytes);
        all.missing.push_back(!bytes);
        all.bytes.push_back(std::move(bytes).value_or(std::string()));
        all.fingerprint = FingerprintOf(all.bytes.back(), all.fingerprint);
    }
    return all;
}

} // namespace

CompiledLists CompileLists(const std::vector<ListSource>& lists, const std::string& cacheFile) {
    CompiledLists compiled;
    ReadLists all = ReadAll(lists);
    compiled.Missing = std::move(all.missing);
    if (auto kept = cacheFile.empty() ? std::nullopt : ReadWholeFile(cacheFile)) {
        if (auto image = RuleImage::Read(std::move(*kept), all.fingerprint)) {
            compiled.Image = std::move(*image);
            compiled.FromCache = true;
            return compiled;
        }
    }
    RuleCompiler compiler;
    for (std::string& each : all.bytes) {
        compiled.Reports.push_back(compiler.AddList(each));
        each = {};
    }
    std::string image = compiler.Image(all.fingerprint);
    if (!cacheFile.empty()) ResumeNext(WriteWholeFile(cacheFile, image, Readers::UserAlone));
    if (auto read = RuleImage::Read(std::move(image), all.fingerprint)) compiled.Image = std::move(*read);
    return compiled;
}

} // namespace tessa
