#include "tests/fakes/FakeDesktop.h"

#include <utility>

namespace tessa {

std::string FakeLog::Take() {
    std::string all;
    for (const auto& line : std::exchange(lines, {})) all += (all.empty() ? "" : ", ") + line;
    return all;
}

Answer FakeMessages::AskYesNoCancel(TextView question) {
    asked.emplace_back(question);
    if (whileOpen) whileOpen();
    if (answers.empty()) return answer;
    const Answer next = answers.front();
    answers.pop_front();
    return next;
}

Text FakeFiles::ShowOpen(const FileDialogRequest& request) {
    last = request;
    if (whileOpen) whileOpen();
    return chosen;
}

void FakeWindow::SetCaption(TextView value) {
    caption = value;
    m_log.Add("caption " + ToUtf8(value));
}

void FakeWindow::Show() { m_log.Add("show"); }

void FakeWindow::Close() {
    m_log.Add("close");
    if (closed) closed();
}

void FakeWindow::SetSize(Twips width, Twips height) {
    place.width = width;
    place.height = height;
}

bool FakeDefaultBrowser::IsDefault(TextView name, TextView path) {
    calls.push_back("query " + ToUtf8(name) + " " + ToUtf8(path));
    return isDefault;
}

Outcome FakeDefaultBrowser::MakeDefault(TextView name, TextView path) {
    calls.push_back("make " + ToUtf8(name) + " " + ToUtf8(path));
    if (refuses) return Outcome::Failed;
    isDefault = true;
    return Outcome::Done;
}

std::optional<Text> FakeShell::EnvironmentVariable(TextView name) const {
    const auto found = variables.find(name);
    return found == variables.end() ? std::nullopt : std::optional(found->second);
}

Text FakeShell::ProgramFor(TextView scheme) const {
    const auto found = programs.find(scheme);
    return found == programs.end() ? Text() : found->second;
}

Outcome FakeShell::Start(const std::vector<Text>& words) {
    std::string all;
    for (const Text& word : words) all += "<" + ToUtf8(word) + ">";
    m_log.Add(all);
    return refuses ? Outcome::Failed : Outcome::Done;
}

Outcome FakeChannel::RegisterMessage(TextView name) {
    m_log.Add("register " + ToUtf8(name));
    return Outcome::Done;
}

bool FakeChannel::PreviousInstance(Instances allowed) {
    m_log.Add(allowed == Instances::One ? "look" : "look, several allowed");
    return running;
}

Outcome FakeChannel::SetForegroundWindow() {
    m_log.Add("foreground");
    return windowFound ? Outcome::Done : Outcome::Failed;
}

Outcome FakeChannel::SendMessage(TextView text) {
    m_log.Add("send");
    if (windowFound && runningHandles) runningHandles(Text(text));
    return windowFound ? Outcome::Done : Outcome::Failed;
}

void FakeSessions::WriteOwn(const std::string& bytes, Written done) {
    ++writes;
    const auto write = [this, bytes, done = std::move(done)] {
        if (!refuses) own = bytes;
        done(refuses ? Outcome::Failed : Outcome::Done);
    };
    if (slow)
        m_waiting.emplace_back(write);
    else
        write();
}

void FakeSessions::Arrive() {
    for (const auto& each : std::exchange(m_waiting, {})) each();
}

void FakeSessions::Rewrite(TextView Id, const std::string& bytes, Written done) {
    if (refusesRewrite) return done(Outcome::Failed);
    for (KeptSession& kept : earlier) {
        if (kept.Id == Id) kept.Bytes = bytes;
    }
    std::erase_if(earlier, [](const KeptSession& kept) { return kept.Bytes.empty(); });
    done(Outcome::Done);
}

} // namespace tessa
