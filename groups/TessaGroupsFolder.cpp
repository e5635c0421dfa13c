#include "bar/RuntimeIds.h"
#include "base/Captions.h"
#include "base/os/Folder.h"
#include "groups/TessaGroups.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace {

// The folder is asked with a pattern, and patterns do not tell upper from lower case.
bool IsGroupName(std::string_view name) {
    return !name.starts_with('.') && EndsLike(name, ToUtf8(TessaGroups::kExtension));
}

std::vector<Text> GroupFiles(TextView folder) {
    std::vector<Text> names;
    std::error_code failed;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator at(PathToBytes(folder), failed); !failed && at != end;
         at.increment(failed)) {
        const std::string name = at->path().filename().string();
        std::error_code unknown;
        if (!IsGroupName(name) || !at->is_regular_file(unknown)) continue;
        names.push_back(PathFromBytes(name));
    }
    // Equal names keep the order in which they come, so that must be the same every time.
    std::ranges::sort(names);
    return names;
}

} // namespace

namespace TessaGroups {

CKeyValues List(TextView folder) {
    CKeyValues groups;
    for (const Text& file : GroupFiles(folder))
        groups.Add(file.substr(0, file.size() - kExtension.size()), Text(folder) + file);
    return groups;
}

Outcome Delete(TextView path) {
    std::error_code failed;
    return std::filesystem::remove(PathToBytes(path), failed) ? Outcome::Done : Outcome::Failed;
}

void FillBand(Band& band, TextView folder, const Picture& TessaGroupsPicture, std::int32_t& nextId) {
    constexpr TextView kMark = u"555-";
    if (band.Caption().starts_with(kMark)) band.Caption = band.Caption().substr(kMark.size());
    auto first = BeginGroup::Yes;
    for (const auto& [name, path] : List(folder)) {
        auto tool =
            std::make_shared<Tool>(RuntimeIds::Take(RuntimeIds::kGroups, nextId), u"zzx" + name, MenuCaption(name));
        tool->Description = path;
        tool->Image = TessaGroupsPicture;
        band.Append(std::move(tool), std::exchange(first, BeginGroup::No));
    }
}

} // namespace TessaGroups
