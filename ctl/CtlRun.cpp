#include "ctl/CtlRun.h"

#include "base/os/AtomicFile.h"
#include "base/os/FileLock.h"
#include "base/os/Folder.h"
#include "base/os/Paths.h"
#include "ctl/StartProgram.h"
#include "script/BusNames.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>

namespace tessa {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks{20};
/// Of a start for a script.
constexpr std::uint32_t kFirstTab = 1;

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string FolderFor(const CtlArguments::Call& call) {
    return BusNames::StateFolder(
        {call.instance.value_or(Variable("TESSAVIEW_HOME")), Variable("XDG_CONFIG_HOME"), Variable("HOME")});
}

std::string Joined(const std::vector<std::string>& words) {
    std::string all;
    for (const std::string& word : words) all += (all.empty() ? "" : " ") + word;
    return all;
}

bool IsGroupPath(const std::string& word) { return word.find('/') != std::string::npos || word.ends_with(".tvg"); }

/// What stands for a group: the path of its file, or a name.
std::string GroupNamed(const std::string& word) { return IsGroupPath(word) ? AbsolutePath(word) : word; }

// A file here is meant from this folder; the program is in another.
std::string AddressOf(const std::string& word) {
    const bool isHere = word.find(':') == std::string::npos && LeadsSomewhere(word);
    return isHere ? AbsolutePath(word) : word;
}

} // namespace

CtlRun::CtlRun(const CtlArguments::Call& call)
    : m_call(call),
      m_folder(FolderFor(call)),
      m_bus(BusNames::NameFor(m_folder)),
      m_until(std::chrono::steady_clock::now() + std::chrono::seconds(call.seconds)) {}

CtlRun::Answer CtlRun::Ask(const char* method, std::initializer_list<BusCalls::Argument> arguments) {
    return m_bus.Call(method, arguments, m_until);
}

CtlRun::Exit CtlRun::Fail(Exit code, const std::string& words) const {
    std::fprintf(stderr, "tessaviewctl: %s\n", words.c_str());
    return code;
}

CtlRun::Exit CtlRun::Print(const Answer& answer) const {
    switch (answer.result) {
    case BusCalls::Result::Done:
        break;
    case BusCalls::Result::Refused:
        return Fail(Exit::Failed, answer.words);
    case BusCalls::Result::NothingRuns:
        return Fail(Exit::NothingRuns, answer.words);
    case BusCalls::Result::TimeOut:
        return Fail(Exit::TimeOut, answer.words);
    }
    const std::string_view name = m_call.command->name;
    std::string text = answer.words;
    if (name == "check-group")
        text = m_call.json ? TabList::CheckJson(answer.tabs) : TabList::CheckLines(answer.tabs);
    else if (name == "list" || name == "search")
        text = m_call.json ? TabList::Json(answer.tabs) : TabList::Lines(answer.tabs);
    else if (!text.empty() && !text.ends_with('\n'))
        text += '\n';
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    return written ? Exit::Done : Fail(Exit::Failed, "The output could not be written.");
}

// One at a time: a program that two have started would be handed what it is to open as an address.
CtlRun::Exit CtlRun::Begin() {
    if (!m_bus.Connected()) return Fail(Exit::Failed, "There is no session bus.");
    if (!m_bus.Owner().empty()) return Exit::Done;
    MakeFolders(m_folder);
    const FileLock alone(m_folder + "/starting.lock", std::chrono::seconds(m_call.seconds));
    if (!m_bus.Owner().empty()) return Exit::Done;
    StartedProgram program(m_call.instance ? std::optional(AbsolutePath(*m_call.instance)) : std::nullopt);
    m_started = true;
    while (m_bus.Owner().empty()) {
        if (const std::string trouble = program.Trouble(); !trouble.empty()) return Fail(Exit::Failed, trouble);
        if (std::chrono::steady_clock::now() > m_until)
            return Fail(Exit::TimeOut, "TessaView has not started in time.");
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return Exit::Done;
}

// Whom the desktop has started for a click may bring the window to the front.
void CtlRun::ComeForward() {
    std::string token = Variable("XDG_ACTIVATION_TOKEN");
    if (token.empty()) token = Variable("DESKTOP_STARTUP_ID");
    if (!token.empty()) (void)Ask("Foreground", {token});
}

// The blank tab that the program has started with goes, unless a page took its place.
CtlRun::Exit CtlRun::Opened(const Answer& answer) {
    const bool isTaken = std::ranges::find(answer.numbers, kFirstTab) != answer.numbers.end();
    if (m_started && !answer.numbers.empty() && !isTaken) (void)Ask("Close", {std::vector<std::uint32_t>{kFirstTab}});
    if (answer.result != BusCalls::Result::Done || !m_call.wait || answer.numbers.empty()) return Print(answer);
    return Print(Ask("Wait", {answer.numbers}));
}

CtlRun::Exit CtlRun::Open() {
    if (const Exit begun = Begin(); begun != Exit::Done) return begun;
    std::vector<std::string> addresses;
    for (const std::string& word : m_call.words) addresses.push_back(AddressOf(word));
    if (!m_call.behind) ComeForward();
    return Opened(Ask("Open", {addresses, m_call.behind}));
}

CtlRun::Exit CtlRun::OpenGroup() {
    std::string group = m_call.words.front();
    constexpr std::string_view kScheme = "file://";
    if (group.starts_with(kScheme)) return Fail(Exit::Usage, "A TessaGroup is named by its path or its name: " + group);
    const bool isPath = IsGroupPath(group);
    if (isPath && !FileExists(group)) return Fail(Exit::Failed, "There is no such file: " + group);
    group = GroupNamed(group);
    if (const Exit begun = Begin(); begun != Exit::Done) return begun;
    ComeForward();
    return Opened(Ask("OpenGroup", {group, m_call.closeOthers}));
}

CtlRun::Exit CtlRun::Pdf() {
    const std::string file = AbsolutePath(m_call.words.back());
    if (!m_call.numbers.empty()) return Print(Ask("Pdf", {m_call.numbers.front(), file}));
    return Kept(Ask("PdfOfAll", {m_call.numbers, file}));
}

CtlRun::Answer CtlRun::OfGroup(const char* method) {
    return Ask(method, {GroupNamed(m_call.words.front()), AbsolutePath(m_call.words.back())});
}

// What is missing in the file is no success.
CtlRun::Exit CtlRun::Kept(const Answer& answer) const {
    for (const std::string& each : answer.texts) std::fprintf(stderr, "tessaviewctl: left out: %s\n", each.c_str());
    const Exit printed = Print(answer);
    return printed == Exit::Done && !answer.texts.empty() ? Exit::Failed : printed;
}

CtlRun::Exit CtlRun::Reload() {
    const Answer answer = Ask("Reload", {m_call.numbers});
    if (answer.result != BusCalls::Result::Done || !m_call.wait) return Print(answer);
    return Print(Ask("Wait", {m_call.numbers}));
}

// Pages may want to hold their user, who then decides.
CtlRun::Exit CtlRun::Quit() {
    const std::string owner = m_bus.Owner();
    const Answer answer = Ask("Quit", {});
    if (answer.result != BusCalls::Result::Done) return Print(answer);
    while (m_bus.Owner() == owner) {
        if (std::chrono::steady_clock::now() > m_until) return Fail(Exit::TimeOut, "TessaView still runs.");
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return Exit::Done;
}

CtlRun::Exit CtlRun::Run() {
    const std::string_view name = m_call.command->name;
    const auto number = [this] { return m_call.numbers.front(); };
    if (name == "bus-name") return Print({BusCalls::Result::Done, BusNames::NameFor(m_folder), {}, {}, {}});
    if (name == "open") return Open();
    if (name == "open-group") return OpenGroup();
    if (name == "list") return Print(Ask("List", {}));
    if (name == "search") return Print(Ask("Search", {Joined(m_call.words)}));
    if (name == "save-group") return Print(Ask("SaveGroup", {AbsolutePath(m_call.words.front()), m_call.replace}));
    if (name == "activate") return Print(Ask("Activate", {number()}));
    if (name == "close") return Print(Ask("Close", {m_call.numbers}));
    if (name == "reload") return Reload();
    if (name == "text") return Print(Ask("Text", {number()}));
    if (name == "html") return Print(Ask("Html", {number()}));
    if (name == "pdf") return Pdf();
    if (name == "keep-offline") return Kept(Ask("KeepOffline", {m_call.numbers, AbsolutePath(m_call.words.front())}));
    if (name == "pdf-group") return Kept(OfGroup("PdfOfGroup"));
    if (name == "keep-group") return Kept(OfGroup("KeepGroup"));
    if (name == "check-group") return Print(Ask("CheckGroup", {GroupNamed(m_call.words.front())}));
    if (name == "screenshot") return Print(Ask("Screenshot", {number(), AbsolutePath(m_call.words.back())}));
    if (name == "run-command") return Print(Ask("RunCommand", {m_call.words.front()}));
    if (name == "wait-idle") return Print(Ask("Wait", {std::vector<std::uint32_t>()}));
    return Quit();
}

} // namespace tessa
