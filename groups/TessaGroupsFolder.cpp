#include "bar/RuntimeIds.h"
#include "base/Captions.h"
#include "base/os/Folder.h"
#include "groups/TessaGroups.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tessa {

namespace {

std::vector<Text> GroupFiles(TextView folder) {
    std::vector<Text> names;
    for (const FolderEntry& entry : ListFolder(PathToBytes(folder))) {
        // The folder is asked with a pattern, and patterns do not tell upper from lower case.
        if (entry.IsFile && EndsLike(entry.Name, ToUtf8(TessaGroups::kExtension)))
            names.push_back(PathFromBytes(entry.Name));
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

std::vector<Text> Names(TextView folder) {
    std::vector<Text> names = GroupFiles(folder);
    for (Text& each : names) each.resize(each.size() - kExtension.size());
    return names;
}

Outcome Delete(TextView path) { return RemoveEntry(PathToBytes(path)); }

void FillBand(Band& band, TextView folder, const Picture& TessaGroupsPicture, std::int32_t& nextId) {
    constexpr TextView kMark = u"555-";
    if (band.Caption().starts_with(kMark)) band.Caption = band.Caption().substr(kMark.size());
    auto first = BeginGroup::Yes;
    for (const auto& [name, path] : List(folder)) {
        auto tool = std::make_shared<Tool>(MadeFrom::Group{path}, RuntimeIds::Take(RuntimeIds::kGroups, nextId),
                                           u"zzx" + name, MenuCaption(name));
        tool->Description = path;
        tool->Image = TessaGroupsPicture;
        band.Append(std::move(tool), std::exchange(first, BeginGroup::No));
    }
}

} // namespace TessaGroups

} // namespace tessa
