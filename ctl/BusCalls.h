#pragma once
#include "script/TabList.h"

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <variant>
#include <vector>

struct sd_bus;

namespace tessa {

/// Calls of the instance that has a name on the session bus.
class BusCalls {
public:
    enum class Result { Done, Refused, NothingRuns, TimeOut };
    struct Answer {
        Result result = Result::Refused;
        std::string words; ///< why it was not done; else the text that was answered
        std::vector<ScriptTab> tabs;
        std::vector<std::uint32_t> numbers;
        std::vector<std::string> texts;
    };
    using Argument =
        std::variant<std::string, bool, std::uint32_t, std::vector<std::string>, std::vector<std::uint32_t>>;
    using Deadline = std::chrono::steady_clock::time_point;

    explicit BusCalls(std::string name);
    ~BusCalls();
    BusCalls(const BusCalls&) = delete;
    BusCalls& operator=(const BusCalls&) = delete;

    /// Whether there is a session bus.
    [[nodiscard]] bool Connected() const { return m_bus != nullptr; }
    /// Who has the name at the moment; empty for nobody.
    [[nodiscard]] std::string Owner() const;
    /// Calls a method and waits for the answer.
    [[nodiscard]] Answer Call(const char* method, std::initializer_list<Argument> arguments, Deadline until) const;

private:
    const std::string m_name;
    sd_bus* m_bus = nullptr;
};

} // namespace tessa
