#include "script/CtlArguments.h"

#include "base/Text.h"
#include "base/Version.h"

#include <algorithm>
#include <cstddef>

namespace tessa {

namespace CtlArguments {

namespace {

constexpr std::string_view kBefore = R"(Usage: tessaviewctl [--instance HOME] [--timeout SECONDS] COMMAND [ARGUMENT...]
Drives the TessaView that runs.

)";

constexpr std::string_view kBehind = R"(
  --instance HOME     the instance that keeps everything in that folder, as TESSAVIEW_HOME names it
  --timeout SECONDS   how long to wait at most; 60 by design
  --help, --version   show this text or the version, and end

N is a tab's number as "list" shows it. It stays with its tab.
Exit status: 0 done, 1 refused or failed, 2 wrong usage, 3 nothing runs, 4 it took too long.
)";

constexpr std::uint32_t kLongestWait = 24 * 60 * 60;
constexpr std::size_t kUsageWidth = 44;

std::optional<std::uint32_t> NumberIn(const std::string& word) {
    const auto number = WholeNumber(FromBytes(word));
    const bool digits = std::ranges::all_of(word, [](char each) { return each >= '0' && each <= '9'; });
    return number && digits ? std::optional(static_cast<std::uint32_t>(*number)) : std::nullopt;
}

bool Takes(const Command& command, std::string_view option) {
    std::string_view left = command.options;
    while (!left.empty()) {
        const std::size_t end = std::min(left.find(' '), left.size());
        if (left.substr(0, end) == option) return true;
        left.remove_prefix(std::min(end + 1, left.size()));
    }
    return false;
}

/// Reads the arguments one by one.
class Reader {
public:
    explicit Reader(const std::vector<std::string>& arguments) : m_arguments(arguments) {}

    std::variant<Call, Information, Wrong> Read() {
        for (m_at = 0; m_at < m_arguments.size(); ++m_at) {
            const std::string& each = m_arguments[m_at];
            if (m_onlyWords || !each.starts_with("-") || each == "-")
                TakeWord(each);
            else if (each == "--")
                m_onlyWords = true;
            else if (auto information = TakeOption(each))
                return *information;
            if (!m_wrong.empty()) return Wrong{m_wrong};
        }
        if (!m_call.command) return Wrong{"no command; see tessaviewctl --help"};
        CheckWords();
        if (m_wrong.empty()) CheckOptions();
        return m_wrong.empty() ? std::variant<Call, Information, Wrong>(m_call) : Wrong{m_wrong};
    }

private:
    void TakeWord(const std::string& word) {
        if (m_call.command) return m_call.words.push_back(word);
        const auto found = std::ranges::find(Commands(), word, &Command::name);
        if (found == Commands().end())
            m_wrong = "no such command: " + word;
        else
            m_call.command = &*found;
    }

    std::optional<Information> TakeOption(const std::string& option) {
        if (option == "--help" || option == "-h") return Information{Help()};
        if (option == "--version")
            return Information{"tessaviewctl " + ToUtf8(Version::kNumber) + " Build " +
                               std::to_string(Version::kRevision) + "\n"};
        if (option == "--instance" || option == "--timeout")
            TakeValue(option);
        else if (bool* flag = FlagOf(option))
            *flag = true, m_flags.push_back(option.substr(2));
        else
            m_wrong = "no such option: " + option;
        return std::nullopt;
    }

    bool* FlagOf(const std::string& option) {
        if (option == "--json") return &m_call.json;
        if (option == "--behind") return &m_call.behind;
        if (option == "--close-others") return &m_call.closeOthers;
        if (option == "--replace") return &m_call.replace;
        return option == "--wait" ? &m_call.wait : nullptr;
    }

    void TakeValue(const std::string& option) {
        if (m_at + 1 == m_arguments.size()) {
            m_wrong = option + " needs a value";
            return;
        }
        const std::string& value = m_arguments[++m_at];
        if (option == "--instance") {
            m_call.instance = value;
            if (value.empty()) m_wrong = "--instance needs a folder";
            return;
        }
        const auto seconds = NumberIn(value);
        if (!seconds || *seconds == 0 || *seconds > kLongestWait)
            m_wrong = "no number of seconds: " + value;
        else
            m_call.seconds = *seconds;
    }

    void CheckWords() {
        const std::size_t count = m_call.words.size();
        switch (m_call.command->words) {
        case Words::None:
            return Check(count == 0);
        case Words::One:
            return Check(count == 1 && !m_call.words.front().empty());
        case Words::Some:
            return Check(count >= 1);
        case Words::TabsAndFile:
            Check(count == 2);
            return count == 2 && m_call.words.front() == "all" ? void() : TakeNumbers(1);
        case Words::GroupAndFile:
            return Check(count == 2 && !m_call.words.front().empty() && !m_call.words.back().empty());
        case Words::NumberAndFile:
            Check(count == 2);
            return TakeNumbers(1);
        case Words::Number:
            Check(count == 1);
            return TakeNumbers(count);
        case Words::Numbers:
            Check(count >= 1);
            return TakeNumbers(count);
        case Words::NumbersOrAll:
            Check(count >= 1);
            if (count != 1 || m_call.words.front() != "all") TakeNumbers(count);
        }
    }

    void Check(bool right) {
        if (!right)
            m_wrong =
                "usage: tessaviewctl " + std::string(m_call.command->name) + " " + std::string(m_call.command->usage);
    }

    void TakeNumbers(std::size_t count) {
        for (std::size_t at = 0; at < count && m_wrong.empty(); ++at) {
            const auto number = NumberIn(m_call.words[at]);
            if (!number || *number == 0)
                m_wrong = "no number of a tab: " + m_call.words[at];
            else
                m_call.numbers.push_back(*number);
        }
    }

    void CheckOptions() {
        for (const std::string& flag : m_flags) {
            if (!Takes(*m_call.command, flag)) m_wrong = std::string(m_call.command->name) + " takes no --" + flag;
        }
    }

    const std::vector<std::string>& m_arguments;
    std::size_t m_at = 0;
    bool m_onlyWords = false;
    Call m_call;
    std::vector<std::string> m_flags;
    std::string m_wrong;
};

} // namespace

const std::vector<Command>& Commands() {
    static const std::vector<Command> commands{
        {"list", Words::None, "json", "[--json]", "number, state, title, address and group of each tab"},
        {"search", Words::Some, "json", "WORD... [--json]", "tabs and pages of the history with all the words"},
        {"open", Words::Some, "behind wait", "ADDRESS... [--behind] [--wait]", "open each in a tab", true},
        {"open-group", Words::One, "close-others wait", "FILE|NAME [--close-others] [--wait]", "open a TessaGroup",
         true},
        {"save-group", Words::One, "replace", "FILE [--replace]", "save the open tabs as a TessaGroup"},
        {"activate", Words::Number, "", "N", "bring a tab to the front"},
        {"close", Words::Numbers, "", "N...", "close tabs"},
        {"reload", Words::NumbersOrAll, "wait", "N...|all [--wait]", "load again"},
        {"text", Words::Number, "", "N", "print the text of a page"},
        {"html", Words::Number, "", "N", "print a page as HTML, as it is now"},
        {"pdf", Words::TabsAndFile, "", "N|all FILE", "write a page as PDF, or all pages with an outline"},
        {"pdf-group", Words::GroupAndFile, "", "GROUP FILE", "write the pages of a TessaGroup as one PDF"},
        {"screenshot", Words::NumberAndFile, "", "N FILE", "write what is seen of a page as PNG; activates it"},
        {"keep-offline", Words::One, "", "FILE", "keep all pages beside a new TessaGroup that opens them"},
        {"keep-group", Words::GroupAndFile, "", "GROUP FILE", "keep the pages of a TessaGroup like that"},
        {"check-group", Words::One, "json", "FILE|NAME [--json]", "ask for every address of a TessaGroup"},
        {"run-command", Words::One, "", "TOOL", "run a command of the bar by its name, as mnuRefresh"},
        {"wait-idle", Words::None, "", "", "wait until every page has loaded or failed"},
        {"bus-name", Words::None, "", "", "print the name on the session bus"},
        {"quit", Words::None, "", "", "end the program; pages may ask their user first"},
    };
    return commands;
}

std::string Help() {
    std::string help(kBefore);
    for (const Command& each : Commands()) {
        std::string usage = "  " + std::string(each.name) + " " + std::string(each.usage);
        if (usage.size() + 2 > kUsageWidth)
            usage += "\n" + std::string(kUsageWidth, ' ');
        else
            usage.resize(kUsageWidth, ' ');
        help += usage + std::string(each.help) + "\n";
    }
    return help + std::string(kBehind);
}

std::variant<Call, Information, Wrong> Read(const std::vector<std::string>& arguments) {
    return Reader(arguments).Read();
}

} // namespace CtlArguments

} // namespace tessa
