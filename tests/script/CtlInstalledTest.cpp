// What is installed beside tessaviewctl knows all its commands, each with its options, and no others.
#include "script/CtlArguments.h"
#include "tests/base/HouseFiles.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace tessa {

namespace {

using CtlArguments::Command;
using Names = std::set<std::string>;
using OptionsOf = std::map<std::string, Names>; ///< by the names of the commands; of those that have some

Names WordsIn(std::string text) {
    for (char& each : text)
        if (each == '\\' || each == '|') each = ' ';
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

/// What the expression finds in a text: the first group of each place.
std::vector<std::string> Found(const std::string& text, const std::string& expression, std::size_t group = 1) {
    const std::regex wanted(expression);
    std::vector<std::string> found;
    for (std::sregex_iterator each(text.begin(), text.end(), wanted), end; each != end; ++each)
        found.push_back((*each)[group].str());
    return found;
}

/// For rows of commands and options, in the order of the two groups or the other way round.
OptionsOf TableIn(const std::string& text, const std::string& expression, std::size_t commands, std::size_t options) {
    OptionsOf table;
    const auto names = Found(text, expression, commands), all = Found(text, expression, options);
    for (std::size_t row = 0; row < names.size(); ++row)
        for (const std::string& command : WordsIn(names[row])) table[command].merge(WordsIn(all[row]));
    return table;
}

Names CommandNames() {
    Names names;
    for (const Command& each : CtlArguments::Commands()) names.emplace(each.name);
    return names;
}

/// With "--" before each, or without.
OptionsOf CommandOptions(const std::string& dashes) {
    OptionsOf table;
    for (const Command& command : CtlArguments::Commands())
        for (const std::string& option : WordsIn(std::string(command.options)))
            table[std::string(command.name)].insert(dashes + option);
    return table;
}

std::string Completion(const std::string& shell) { return house::Read("packaging/completions/tessaviewctl." + shell); }

TEST(CtlInstalled, TheHelpKnowsAllCommands) {
    for (const Command& command : CtlArguments::Commands())
        EXPECT_NE(CtlArguments::Help().find("\n  " + std::string(command.name) + " "), std::string::npos)
            << command.name;
}

TEST(CtlInstalled, TheManualPageShowsThemAsTheHelpDoes) {
    const std::string manual = house::Read("packaging/tessaviewctl.1");
    const std::size_t begin = manual.find(".SH COMMANDS"), end = manual.find(".SH OPTIONS");
    std::vector<std::string> shown, known;
    for (const std::string& line : Found(manual.substr(begin, end - begin), "\\n\\.TP\n\\.B ([^\n]*)")) {
        const std::string plain = std::regex_replace(line, std::regex("\\\\f[A-Z]"), "");
        shown.push_back(std::regex_replace(plain, std::regex("\\\\-"), "-"));
    }
    for (const Command& each : CtlArguments::Commands())
        known.push_back(std::string(each.name) + (each.usage.empty() ? "" : " ") + std::string(each.usage));
    std::ranges::sort(shown);
    std::ranges::sort(known);
    EXPECT_EQ(shown, known);
}

TEST(CtlInstalled, TheCompletionOfBashIsTrue) {
    const std::string bash = Completion("bash");
    EXPECT_EQ(WordsIn(Found(bash, "commands=\"([^\"]*)\"").at(0)), CommandNames());
    EXPECT_EQ(TableIn(bash, "\n *([a-z| -]+)\\) options\\+=\"([^\"]*)\"", 1, 2), CommandOptions("--"));
}

TEST(CtlInstalled, TheCompletionOfFishIsTrue) {
    const std::string fish = Completion("fish");
    EXPECT_EQ(WordsIn(Found(fish, "set -l commands ((?:[^\n]*\\\\\n)*[^\n]*)").at(0)), CommandNames());
    EXPECT_EQ(TableIn(fish, "-n \"__fish_seen_subcommand_from ([a-z -]+)\" -l ([a-z-]+)", 1, 2), CommandOptions(""));
}

TEST(CtlInstalled, TheCompletionOfZshIsTrue) {
    const std::string zsh = Completion("zsh");
    const std::string list = Found(zsh, "commands=\\(([^)]*)\\)").at(0);
    const auto names = Found(list, "'([a-z-]+):");
    EXPECT_EQ(Names(names.begin(), names.end()), CommandNames());
    OptionsOf table;
    for (const std::string& row : Found(zsh, "\n *([a-z|-]+\\) options\\+=\\([^\n]*)")) {
        const auto options = Found(row, "'(--[a-z-]+)\\[");
        for (const std::string& command : WordsIn(row.substr(0, row.find(')'))))
            table[command].insert(options.begin(), options.end());
    }
    EXPECT_EQ(table, CommandOptions("--"));
}

} // namespace

} // namespace tessa
