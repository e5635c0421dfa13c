#pragma once
#include "platform/SettingsStorage.h"

namespace tessa {

/// What a person sends along who reports an error.
namespace Report {

/// What the report takes from outside.
struct Facts {
    Text Build;                   ///< version, engine, system, a line each
    Text Drawing;                 ///< what draws windows and pages
    std::vector<std::string> Log; ///< the newest lines of the log
};

/// Reads them. Owned by the program's entry.
class Source {
public:
    virtual ~Source() = default;
    [[nodiscard]] virtual Facts Read() = 0;
};

/// The newest lines of the log that go along.
inline constexpr std::size_t kLines = 200;

/// The report, a text of lines. No address, title or other text of the user's is in it.
[[nodiscard]] Text Words(const Facts& facts, SettingsStorageFactory& settings);

} // namespace Report

} // namespace tessa
