#include "base/ini/IniFile.h"

#include "base/Text.h"
#include "base/os/AtomicFile.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::size_t kMostBytes = std::size_t{64} << 20;
/// Of a value, in bytes.
constexpr std::size_t kMostOfAValue = 511;
/// Enough to see the whole of a character that the end goes through.
constexpr std::size_t kLookAhead = 3;

constexpr bool IsBlank(char byte) { return byte == ' ' || byte == '\t' || byte == '\v'; }

std::string_view Trimmed(std::string_view text) { return TrimmedOf(text, IsBlank); }

std::string_view WithoutSpacesBehind(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

// Of a caller's names only spaces are dropped.
std::string_view Argument(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    return WithoutSpacesBehind(text);
}

// Lower case in Windows-1252, the page that names in such files are written in.
char Lower(char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    const bool latin = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
    if (latin) return static_cast<char>(byte + 0x20);
    if (byte == 0x8A || byte == 0x8C || byte == 0x8E) return static_cast<char>(byte + 0x10);
    return byte == 0x9F ? static_cast<char>(0xFF) : letter;
}

std::string Folded(std::string_view name) {
    std::string folded(name);
    for (char& byte : folded) byte = Lower(byte);
    return folded;
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string Cut(std::string_view value, std::size_t size) {
    return std::string(size == 0 ? std::string_view() : value.substr(0, size - 1));
}

std::string CutList(std::string list, std::size_t size) {
    if (size <= 2) return {};
    if (list.size() > size - 2) list.resize(size - 2);
    return list;
}

std::string_view HeaderName(std::string_view line) {
    line = Trimmed(line).substr(1);
    return Trimmed(line.substr(0, line.find(']')));
}

std::u16string UnitsOf(std::string_view bytes) {
    std::u16string units;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned char>(bytes[at]);
        const auto high = static_cast<unsigned char>(bytes[at + 1]);
        units.push_back(static_cast<char16_t>(low | high << 8));
    }
    return units;
}

std::string BytesOf(const std::u16string& units) {
    std::string bytes;
    bytes.reserve(units.size() * 2);
    for (const char16_t unit : units) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
}

std::u16string Widened(std::string_view text) {
    std::u16string units;
    for (const char byte : text) units.push_back(FromWindows1252(static_cast<unsigned char>(byte)));
    return units;
}

} // namespace

IniFile::IniFile(std::string_view bytes) {
    if (bytes.starts_with(kUtf16Mark)) {
        m_mark = kUtf16Mark;
        m_wide = UnitsOf(bytes.substr(kUtf16Mark.size()));
        m_text.reserve(m_wide->size());
        for (const char16_t unit : *m_wide) m_text.push_back(ToWindows1252(unit));
    } else {
        if (bytes.starts_with(kUtf8Mark)) m_mark = kUtf8Mark;
        m_text = bytes.substr(m_mark.size());
    }
    Parse();
}

std::string IniFile::Bytes() const { return m_mark + (m_wide ? BytesOf(*m_wide) : m_text); }

// Only headers and keys are kept; all else is what lies between them.
void IniFile::Parse() {
    m_lines.clear();
    m_sections.clear();
    m_keysByHeader.clear();
    std::optional<Range> open;
    std::string openName;
    const auto close = [&] {
        if (open) m_sections.try_emplace(openName, Range{open->header, open->first, m_lines.size()});
    };
    for (std::size_t at = 0; at < m_text.size();) {
        const std::size_t end = std::min(m_text.find_first_of("\r\n", at), m_text.size());
        const std::size_t next = m_text.compare(end, 2, "\r\n") == 0 ? end + 2 : std::min(end + 1, m_text.size());
        const std::string_view text = Trimmed(std::string_view(m_text).substr(at, end - at));
        if (text.starts_with('[')) {
            close();
            open = Range{m_lines.size(), m_lines.size() + 1, 0};
            openName = Folded(HeaderName(text));
            m_lines.push_back({at, end, next, Kind::Header});
        } else if (!text.starts_with(';') && text.find('=') != std::string_view::npos) {
            m_lines.push_back({at, end, next, Kind::Key});
        }
        at = next;
    }
    close();
}

std::string_view IniFile::LineText(const Line& line) const {
    return std::string_view(m_text).substr(line.begin, line.end - line.begin);
}

std::string_view IniFile::KeyName(const Line& line) const {
    const std::string_view text = LineText(line);
    return Trimmed(text.substr(0, text.find('=')));
}

std::optional<IniFile::Range> IniFile::FindSection(std::string_view name) const {
    const auto found = m_sections.find(Folded(Argument(name)));
    if (found == m_sections.end()) return std::nullopt;
    return found->second;
}

const IniFile::KeyIndex& IniFile::KeysOf(const Range& section) const {
    const auto [index, made] = m_keysByHeader.try_emplace(section.header);
    if (!made) return index->second;
    for (std::size_t i = section.first; i < section.last; ++i) index->second.emplace(Folded(KeyName(m_lines[i])), i);
    return index->second;
}

std::optional<std::size_t> IniFile::FindKey(const Range& section, std::string_view key) const {
    const auto& keys = KeysOf(section);
    const auto found = keys.find(Folded(Argument(key)));
    return found == keys.end() ? std::nullopt : std::optional(found->second);
}

std::string IniFile::Value(std::string_view section, std::string_view key, std::string_view whenMissing,
                           std::size_t size) const {
    const auto range = FindSection(section);
    const auto line = range ? FindKey(*range, key) : std::nullopt;
    if (!line) return Cut(WithoutSpacesBehind(whenMissing), size);
    std::string_view value = LineText(m_lines[*line]);
    value = Trimmed(value.substr(value.find('=') + 1));
    // The caller's buffer ends at the first NUL.
    return Cut(WithoutQuotes(value).substr(0, WithoutQuotes(value).find('\0')), size);
}

std::string IniFile::KeyList(std::string_view section, std::string_view whenMissing, std::size_t size) const {
    const auto range = FindSection(section);
    std::string list;
    for (std::size_t i = range ? range->first : 0; range && i < range->last; ++i) {
        list.append(KeyName(m_lines[i])).push_back('\0');
    }
    return list.empty() ? Cut(WithoutSpacesBehind(whenMissing), size) : CutList(std::move(list), size);
}

std::string IniFile::SectionList(std::size_t size) const {
    std::string list;
    for (const Line& line : m_lines) {
        if (line.kind == Kind::Header) list.append(HeaderName(LineText(line))).push_back('\0');
    }
    return CutList(std::move(list), size);
}

void IniFile::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    const std::string line = std::string(Argument(key)) + "=" + std::string(value) + "\r\n";
    const auto range = FindSection(section);
    if (!range) {
        const bool unfinished = !Bytes().empty() && (m_text.empty() || m_text.back() != '\n');
        const std::string header = "[" + std::string(Argument(section)) + "]\r\n";
        Replace(m_text.size(), m_text.size(), (unfinished ? "\r\n" : "") + header + line);
    } else if (const auto found = FindKey(*range, key)) {
        const Line& old = m_lines[*found];
        Replace(m_text.find('=', old.begin) + 1, old.next, std::string(value) + "\r\n");
    } else {
        const Line& before = m_lines[range->last - 1];
        Replace(before.next, before.next, (before.next == before.end ? "\r\n" : "") + line);
    }
}

void IniFile::RemoveKey(std::string_view section, std::string_view key) {
    const auto range = FindSection(section);
    const auto line = range ? FindKey(*range, key) : std::nullopt;
    if (line) Replace(m_lines[*line].begin, m_lines[*line].next, {});
}

void IniFile::RemoveSection(std::string_view section) {
    const auto range = FindSection(section);
    if (!range) return;
    std::string kept;
    const std::size_t end = range->last < m_lines.size() ? m_lines[range->last].begin : m_text.size();
    for (std::size_t i = range->header; i < range->last; ++i) {
        const std::size_t until = i + 1 < range->last ? m_lines[i + 1].begin : end;
        kept.append(m_text, m_lines[i].next, until - m_lines[i].next);
    }
    const std::size_t begin = m_lines[range->header].begin;
    Replace(begin, end, kept);
}

void IniFile::Replace(std::size_t begin, std::size_t end, std::string_view text) {
    if (m_wide) m_wide->replace(begin, end - begin, Widened(text));
    m_text.replace(begin, end - begin, text);
    Parse();
}

std::string GetPrivateProfileString(const std::string& path, std::optional<std::string_view> section,
                                    std::optional<std::string_view> key, std::optional<std::string_view> whenMissing,
                                    std::size_t size) {
    const IniFile file(ReadWholeFile(path, kMostBytes).value_or(std::string()));
    if (!section) return file.SectionList(size);
    if (!key) return file.KeyList(*section, whenMissing.value_or(""), size);
    return file.Value(*section, *key, whenMissing.value_or(""), size);
}

bool ChangeIniFile(const std::string& path, const std::function<void(IniFile&)>& change) {
    const auto bytes = ReadWholeFile(path, kMostBytes + 1);
    // What is not read whole cannot be written back whole.
    if (bytes && bytes->size() > kMostBytes) return false;
    if (!bytes && (FileExists(path) || !FolderExists(path))) return false;
    IniFile file(bytes.value_or(std::string()));
    change(file);
    const std::string after = file.Bytes();
    if (bytes ? after == *bytes && IsWritable(path) : after.empty()) return true;
    return WriteWholeFile(path, after) == Outcome::Done;
}

bool WritePrivateProfileString(const std::string& path, std::optional<std::string_view> section,
                               std::optional<std::string_view> key, std::optional<std::string_view> value) {
    return section && ChangeIniFile(path, [&](IniFile& file) {
               if (!key)
                   file.RemoveSection(*section);
               else if (!value)
                   file.RemoveKey(*section, *key);
               else
                   file.SetValue(*section, *key, *value);
           });
}

std::vector<std::string> NamesIn(std::string_view list) {
    std::vector<std::string> names;
    for (std::size_t end = list.find('\0'); end != std::string_view::npos; end = list.find('\0')) {
        names.emplace_back(list.substr(0, end));
        list.remove_prefix(end + 1);
    }
    return names;
}

Text ReadIniValue(const IniFile& file, std::string_view section, std::string_view key, TextView whenMissing) {
    return FromFirstBytes(file.Value(section, key, ToUtf8(whenMissing), kMostOfAValue + kLookAhead + 1), kMostOfAValue);
}

Text ReadIniValue(TextView path, TextView section, TextView key, TextView whenMissing) {
    const IniFile file(ReadWholeFile(PathToBytes(path), kMostBytes).value_or(std::string()));
    return ReadIniValue(file, ToUtf8(section), ToUtf8(key), whenMissing);
}

} // namespace tessa
