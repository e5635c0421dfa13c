#pragma once
#include "base/Text.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessa {

/// INI text, read and written as by the profile functions of the desktop that group files come from. Names are compared
/// without regard to case, and blanks at both ends are dropped. The first of equal sections and keys counts. One pair
/// of quotes around a value is removed. Everything is bytes. A UTF-8 mark at the start is skipped and kept. Text in
/// UTF-16 with its mark is read, and written back, in kind.
class IniFile {
public:
    /// Reads the bytes of a whole file. Any bytes will do.
    explicit IniFile(std::string_view bytes);

    /// The value, at most `size` - 1 bytes of it. For a missing one, `whenMissing` without blanks at its end.
    [[nodiscard]] std::string Value(std::string_view section, std::string_view key, std::string_view whenMissing,
                                    std::size_t size) const;
    /// The names of a section's keys in their order, each ended by a NUL. A list that does not fit is cut two
    /// bytes before `size`, even inside a name. A section without keys answers `whenMissing`.
    [[nodiscard]] std::string KeyList(std::string_view section, std::string_view whenMissing, std::size_t size) const;
    /// The names of the sections, in the form of a key list.
    [[nodiscard]] std::string SectionList(std::size_t size) const;

    /// Writes a value where its key stands. Otherwise it goes behind the section's last key, or into a new section at
    /// the end.
    /// The value is written as it is. All other bytes stay.
    void SetValue(std::string_view section, std::string_view key, std::string_view value);
    /// Removes the key's line. What is not there stays so.
    void RemoveKey(std::string_view section, std::string_view key);
    /// Removes the section's header and keys; its comments stay.
    void RemoveSection(std::string_view section);

    /// The bytes of the file as they are now.
    [[nodiscard]] std::string Bytes() const;

private:
    enum class Kind { Header, Key };
    struct Line {
        std::size_t begin, end; ///< without the line end
        std::size_t next;       ///< where the next line begins
        Kind kind;
    };
    /// Lines [first, last) behind a header.
    struct Range {
        std::size_t header, first, last;
    };
    using KeyIndex = std::unordered_map<std::string, std::size_t>;

    void Parse();
    void Replace(std::size_t begin, std::size_t end, std::string_view text);
    [[nodiscard]] std::optional<Range> FindSection(std::string_view name) const;
    [[nodiscard]] const KeyIndex& KeysOf(const Range& section) const;
    [[nodiscard]] std::optional<std::size_t> FindKey(const Range& section, std::string_view key) const;
    [[nodiscard]] std::string_view LineText(const Line& line) const;
    [[nodiscard]] std::string_view KeyName(const Line& line) const;

    std::string m_text; ///< single bytes, without the mark
    std::string m_mark;
    std::optional<std::u16string> m_wide; ///< of UTF-16 text its units, one to each byte of `m_text`
    std::vector<Line> m_lines;
    std::unordered_map<std::string, Range> m_sections;                ///< by folded name, the first of each
    mutable std::unordered_map<std::size_t, KeyIndex> m_keysByHeader; ///< made when first asked for
};

/// The calls as they are known, on a file named by its path; each reads the file afresh. No value of `key` lists the
/// keys, no value of `section` the sections. A file that cannot be read is an empty one; of one beyond 64 MiB the
/// beginning is read.
[[nodiscard]] std::string GetPrivateProfileString(const std::string& path, std::optional<std::string_view> section,
                                                  std::optional<std::string_view> key,
                                                  std::optional<std::string_view> whenMissing, std::size_t size);

/// Reads the file, has it changed and writes it once. False, and nothing changed, when the file cannot be written, or
/// is beyond 64 MiB. A missing file is made, a missing folder is not. The write is atomic.
[[nodiscard]] bool ChangeIniFile(const std::string& path, const std::function<void(IniFile&)>& change);

/// No value of `key` removes the section, no value of `value` the key. False without a section, and as `ChangeIniFile`.
[[nodiscard]] bool WritePrivateProfileString(const std::string& path, std::optional<std::string_view> section,
                                             std::optional<std::string_view> key,
                                             std::optional<std::string_view> value);

/// The names of a list of keys or sections. One that was cut off has no NUL behind it and is dropped.
[[nodiscard]] std::vector<std::string> NamesIn(std::string_view list);

/// One value of an INI file as the parts of the program read it: at most 511 bytes, as text. A character that the end
/// cuts is left out. Of what is not there, `whenMissing` without blanks at its end.
[[nodiscard]] Text ReadIniValue(const IniFile& file, std::string_view section, std::string_view key,
                                TextView whenMissing);
/// The same of the file of that path.
[[nodiscard]] Text ReadIniValue(TextView path, TextView section, TextView key, TextView whenMissing);

} // namespace tessa
