#include "history/Passages.h"

#include "base/PlainText.h"

#include <array>
#include <optional>

namespace tessa {

namespace {

struct KindLetter {
    char16_t letter;
    PassageKind kind;
};

constexpr std::array kKindLetters{KindLetter{u'p', PassageKind::Words}, KindLetter{u'h', PassageKind::Heading},
                                  KindLetter{u'a', PassageKind::Advertisement}};

std::optional<PassageKind> KindOf(char16_t letter) {
    for (const KindLetter& each : kKindLetters)
        if (each.letter == letter) return each.kind;
    return std::nullopt;
}

char LetterOf(PassageKind kind) {
    for (const KindLetter& each : kKindLetters)
        if (each.kind == kind) return static_cast<char>(each.letter);
    return 'p';
}

/// Calls back for each line, until that says no.
template<typename OnLine>
void ForEachLine(TextView text, OnLine onLine) {
    while (!text.empty()) {
        const std::size_t end = text.find(u'\n');
        if (!onLine(text.substr(0, end)) || end == TextView::npos) return;
        text.remove_prefix(end + 1);
    }
}

// How many bytes of UTF-8 the text takes; half a character counts as the mark that stands for it.
std::size_t BytesOf(TextView text) {
    std::size_t bytes = 0;
    for (const char16_t unit : text) bytes += unit < 0x80 ? 1 : unit < 0x800 ? 2 : (unit & 0xF800) == 0xD800 ? 2 : 3;
    return bytes;
}

// As long as there is room for it.
bool AddPassage(std::vector<Passage>& all, PassageKind kind, TextView words, std::size_t& room) {
    // The letter and the end of the line are kept, too.
    constexpr std::size_t kBeside = 2;
    Text line = PlainLine(words.substr(0, room), Passages::kMostBytes);
    const std::size_t bytes = BytesOf(line) + kBeside;
    if (line.empty()) return true;
    if (bytes > room) return false;
    room -= bytes;
    all.push_back({kind, std::move(line)});
    return true;
}

} // namespace

namespace Passages {

GatheredText Read(TextView gathered) {
    GatheredText read;
    std::size_t room = kMostBytes;
    ForEachLine(gathered, [&](TextView line) {
        if (line == u"!") read.AsksPassword = true;
        if (line.starts_with(u'u')) read.Address = line.substr(1);
        const auto kind = line.empty() ? std::nullopt : KindOf(line.front());
        return !kind || AddPassage(read.Passages, *kind, line.substr(1), room);
    });
    return read;
}

std::string ToBytes(const std::vector<Passage>& passages) {
    std::string bytes;
    for (const Passage& each : passages) {
        bytes += LetterOf(each.Kind);
        bytes += ToUtf8(each.Words);
        bytes += '\n';
    }
    return bytes;
}

std::vector<Passage> FromBytes(std::string_view bytes) { return Read(FromFirstBytes(bytes, kMostBytes)).Passages; }

} // namespace Passages

} // namespace tessa
