#include "pages/LocalPages.h"

#include <algorithm>

namespace tessa {

namespace {

// "/a/kept.html" was saved with what lies in "/a/kept_files/".
Text FolderOfParts(TextView page) {
    const std::size_t name = page.rfind(u'/') + 1, dot = page.rfind(u'.');
    return Text(dot == TextView::npos || dot <= name ? page : page.substr(0, dot)) + u"_files/";
}

/// What the path has beyond the folders that both are in.
TextView BeyondCommonFolders(TextView page, TextView file) {
    const auto differs = std::ranges::mismatch(page, file).in2;
    const auto same = static_cast<std::size_t>(differs - file.begin());
    return file.substr(file.substr(0, same).rfind(u'/') + 1);
}

bool IsHidden(TextView path) { return path.starts_with(u'.') || path.find(u"/.") != TextView::npos; }

} // namespace

bool MayLoadLocal(TextView page, TextView file, LocalUse use) {
    switch (use) {
    case LocalUse::Page:
        return true;
    case LocalUse::Frame:
        return !page.empty() && file.starts_with(FolderOfParts(page));
    case LocalUse::Part:
        return !IsHidden(BeyondCommonFolders(page, file));
    case LocalUse::Data:
        return false;
    }
    return false;
}

} // namespace tessa
