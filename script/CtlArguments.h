#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tessa {

/// What `tessaviewctl` is told on its command line.
namespace CtlArguments {

/// Its exit codes.
enum class Exit {
    Done = 0,
    Failed = 1, ///< the program could not do it, and has said why
    Usage = 2,  ///< the command line could not be understood
    NothingRuns = 3,
    TimeOut = 4
};

/// What stands behind a command.
enum class Words { None, One, Some, NumberAndFile, TabsAndFile, GroupAndFile, Number, Numbers, NumbersOrAll };

/// A row of the table of commands.
struct Command {
    std::string_view name;
    Words words;
    std::string_view options; ///< those that it takes, with blanks between
    std::string_view usage;   ///< what stands behind the name
    std::string_view help;
    bool starts = false; ///< it starts the program when nothing runs
};

/// All commands, in the order of the help.
[[nodiscard]] const std::vector<Command>& Commands();

/// An understood command line.
struct Call {
    const Command* command = nullptr;
    std::vector<std::string> words; ///< as they were given
    std::vector<std::uint32_t> numbers;
    bool json = false, behind = false, closeOthers = false, replace = false, wait = false;
    std::optional<std::string> instance; ///< the home that is meant
    std::uint32_t seconds = 60;          ///< how long to wait at most
};

/// To be printed instead.
struct Information {
    std::string text;
};
/// Why the command line cannot be understood, a line.
struct Wrong {
    std::string text;
};

/// Reads the arguments behind the program's name. Behind "--" nothing is an option.
[[nodiscard]] std::variant<Call, Information, Wrong> Read(const std::vector<std::string>& arguments);

/// What --help shows.
[[nodiscard]] std::string Help();

} // namespace CtlArguments

} // namespace tessa
