#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

#include <optional>
#include <vector>

namespace tessa {

/// The desktop's programs and the environment that they are started in. Owned by the program's entry.
class Shell {
public:
    virtual ~Shell() = default;
    /// The value of an environment variable; nothing when there is none of that name.
    [[nodiscard]] virtual std::optional<Text> EnvironmentVariable(TextView name) const = 0;
    /// Starts a program, the first word, with the others as its arguments. Nothing interprets the words any further.
    /// Does not wait for the program.
    virtual Outcome Start(const std::vector<Text>& words) = 0;
    /// The command line of the program that the desktop has for addresses of that scheme; empty when it has none.
    [[nodiscard]] virtual Text ProgramFor(TextView scheme) const = 0;
    /// The system and the engine that the program runs on, in a few words for a report.
    [[nodiscard]] virtual Text SystemName() const = 0;
};

} // namespace tessa
