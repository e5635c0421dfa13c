#include "script/CtlArguments.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using Arguments = std::vector<std::string>;

/// What a command line means, as one line.
std::string Meaning(const Arguments& arguments) {
    const auto read = CtlArguments::Read(arguments);
    if (const auto* wrong = std::get_if<CtlArguments::Wrong>(&read)) return "wrong: " + wrong->text;
    if (const auto* information = std::get_if<CtlArguments::Information>(&read))
        return "says: " + information->text.substr(0, information->text.find(' '));
    const auto& call = std::get<CtlArguments::Call>(read);
    std::string all(call.command->name);
    for (const std::string& word : call.words) all += " '" + word + "'";
    for (const std::uint32_t number : call.numbers) all += " #" + std::to_string(number);
    for (const auto& [is, word] : {std::pair{call.json, " json"}, std::pair{call.behind, " behind"},
                                   std::pair{call.closeOthers, " close-others"}, std::pair{call.replace, " replace"},
                                   std::pair{call.wait, " wait"}})
        if (is) all += word;
    if (call.instance) all += " of " + *call.instance;
    if (call.seconds != 60) all += " in " + std::to_string(call.seconds);
    return all;
}

TEST(CtlArguments, EachCommandTakesItsWords) {
    EXPECT_EQ(Meaning({"list"}), "list");
    EXPECT_EQ(Meaning({"list", "--json"}), "list json");
    EXPECT_EQ(Meaning({"search", "two", "words"}), "search 'two' 'words'");
    EXPECT_EQ(Meaning({"open", "a.example", "b.example", "--behind", "--wait"}),
              "open 'a.example' 'b.example' behind wait");
    EXPECT_EQ(Meaning({"open-group", "News", "--close-others"}), "open-group 'News' close-others");
    EXPECT_EQ(Meaning({"save-group", "--replace", "x.tvg"}), "save-group 'x.tvg' replace");
    EXPECT_EQ(Meaning({"close", "1", "2"}), "close '1' '2' #1 #2");
    EXPECT_EQ(Meaning({"reload", "all", "--wait"}), "reload 'all' wait");
    EXPECT_EQ(Meaning({"reload", "3"}), "reload '3' #3");
    EXPECT_EQ(Meaning({"pdf", "3", "a.pdf"}), "pdf '3' 'a.pdf' #3");
    EXPECT_EQ(Meaning({"pdf", "all", "a.pdf"}), "pdf 'all' 'a.pdf'");
    EXPECT_EQ(Meaning({"pdf-group", "News", "a.pdf"}), "pdf-group 'News' 'a.pdf'");
    EXPECT_EQ(Meaning({"keep-group", "News", "a.tvg"}), "keep-group 'News' 'a.tvg'");
    EXPECT_EQ(Meaning({"check-group", "News", "--json"}), "check-group 'News' json");
    EXPECT_EQ(Meaning({"keep-offline", "a.tvg"}), "keep-offline 'a.tvg'");
    EXPECT_EQ(Meaning({"quit"}), "quit");
}

TEST(CtlArguments, OptionsStandAnywhere) {
    EXPECT_EQ(Meaning({"--instance", "/h", "list", "--timeout", "5"}), "list of /h in 5");
    EXPECT_EQ(Meaning({"open", "--", "--wait"}), "open '--wait'");
    EXPECT_EQ(Meaning({"open", "-"}), "open '-'");
}

TEST(CtlArguments, WhatIsWrongIsSaid) {
    EXPECT_EQ(Meaning({}), "wrong: no command; see tessaviewctl --help");
    EXPECT_EQ(Meaning({"fly"}), "wrong: no such command: fly");
    EXPECT_EQ(Meaning({"list", "--fast"}), "wrong: no such option: --fast");
    EXPECT_EQ(Meaning({"list", "--wait"}), "wrong: list takes no --wait");
    EXPECT_EQ(Meaning({"list", "x"}), "wrong: usage: tessaviewctl list [--json]");
    EXPECT_EQ(Meaning({"open"}), "wrong: usage: tessaviewctl open ADDRESS... [--behind] [--wait]");
    EXPECT_EQ(Meaning({"open-group", ""}), "wrong: usage: tessaviewctl open-group FILE|NAME [--close-others] [--wait]");
    EXPECT_EQ(Meaning({"activate", "0"}), "wrong: no number of a tab: 0");
    EXPECT_EQ(Meaning({"activate", "-1"}), "wrong: no such option: -1");
    EXPECT_EQ(Meaning({"activate", "1x"}), "wrong: no number of a tab: 1x");
    EXPECT_EQ(Meaning({"close", "99999999999"}), "wrong: no number of a tab: 99999999999");
    EXPECT_EQ(Meaning({"reload", "all", "1"}), "wrong: no number of a tab: all");
    EXPECT_EQ(Meaning({"pdf", "1"}), "wrong: usage: tessaviewctl pdf N|all FILE");
    EXPECT_EQ(Meaning({"pdf", "most", "a.pdf"}), "wrong: no number of a tab: most");
    EXPECT_EQ(Meaning({"pdf-group", "News"}), "wrong: usage: tessaviewctl pdf-group GROUP FILE");
    EXPECT_EQ(Meaning({"keep-group", "", "a.tvg"}), "wrong: usage: tessaviewctl keep-group GROUP FILE");
    EXPECT_EQ(Meaning({"list", "--timeout"}), "wrong: --timeout needs a value");
    EXPECT_EQ(Meaning({"list", "--timeout", "0"}), "wrong: no number of seconds: 0");
    EXPECT_EQ(Meaning({"list", "--timeout", "86401"}), "wrong: no number of seconds: 86401");
    EXPECT_EQ(Meaning({"list", "--instance", ""}), "wrong: --instance needs a folder");
}

TEST(CtlArguments, HelpAndVersionArePrinted) {
    EXPECT_EQ(Meaning({"--help"}), "says: Usage:");
    EXPECT_EQ(Meaning({"list", "-h"}), "says: Usage:");
    EXPECT_EQ(Meaning({"--version"}), "says: tessaviewctl");
}

TEST(CtlArguments, NoLineOfTheHelpIsLongerThanATerminal) {
    const std::string help = CtlArguments::Help();
    for (std::size_t begin = 0; begin < help.size();) {
        const std::size_t end = help.find('\n', begin);
        EXPECT_LE(end - begin, 120U) << help.substr(begin, end - begin);
        begin = end + 1;
    }
}

} // namespace

} // namespace tessa
