#include "base/os/TemporaryNames.h"

#include "base/os/Paths.h"

namespace tessa {

namespace {

constexpr std::string_view kTemporary = ".tessaview-";
constexpr std::string_view kNameLetters = "abcdefghijklmnopqrstuvwxyz012345";
constexpr std::size_t kLongestNameKept = 200; // with what is put around it, it still is a file's name

} // namespace

namespace TemporaryNames {

std::string FolderToOpen(const std::string& path) {
    const std::string folder = FolderAbove(path);
    return folder.empty() ? "." : folder;
}

// Hidden, and with the file's own name, so that it is known whose it is when its writer is killed.
std::string Start(const std::string& target) {
    const std::string name = LastNameOf(target);
    return FolderToOpen(target) + "/." + (name.size() <= kLongestNameKept ? name : "") + std::string(kTemporary);
}

std::string Letters(std::string_view random) {
    std::string letters;
    for (const char byte : random) letters += kNameLetters[static_cast<unsigned char>(byte) % kNameLetters.size()];
    return letters;
}

bool IsOf(const std::string& target, std::string_view name) {
    const std::string start = LastNameOf(Start(target));
    return name.starts_with(start) && name.size() == start.size() + kLetters;
}

} // namespace TemporaryNames

} // namespace tessa
