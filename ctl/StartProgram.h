#pragma once
#include <optional>
#include <string>

namespace tessa {

/// The program, started by itself: it goes on when this process ends.
class StartedProgram {
public:
    /// Starts the program beside this one, or else the one on the search path, with nothing but a blank tab. `home` is
    /// what it is to keep everything in.
    explicit StartedProgram(const std::optional<std::string>& home);

    /// Why it will never be there, a sentence; empty while it may.
    [[nodiscard]] std::string Trouble();

private:
    int m_process = -1;
};

} // namespace tessa
