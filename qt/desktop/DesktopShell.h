#pragma once
#include "platform/Shell.h"

namespace tessa::qt {

/// The desktop's programs by Qt.
class DesktopShell final : public Shell {
public:
    [[nodiscard]] std::optional<Text> EnvironmentVariable(TextView name) const override;
    /// In the user's home folder, without the program's own input.
    Outcome Start(const std::vector<Text>& words) override;
    [[nodiscard]] Text ProgramFor(TextView scheme) const override;
    [[nodiscard]] Text SystemName() const override;
};

} // namespace tessa::qt
