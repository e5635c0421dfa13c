#pragma once
#include "platform/Application.h"
#include "platform/DefaultBrowser.h"
#include "platform/Dialogs.h"
#include "platform/FolderWatch.h"
#include "platform/InstanceChannel.h"
#include "platform/LayoutFile.h"
#include "platform/MainWindow.h"
#include "platform/SessionFiles.h"
#include "platform/Shell.h"
#include "platform/Trash.h"

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tessa {

/// Everything outside the program but pages and settings, as plain values. Each object writes what it was asked
/// into the one `log`, in order.
struct FakeLog {
    std::vector<std::string> lines;
    void Add(std::string line) { lines.push_back(std::move(line)); }
    /// All lines so far, separated by ", "; forgets them.
    std::string Take();
};

class FakeMessages final : public MessageBoxes {
public:
    Answer AskYesNoCancel(TextView question) override;
    bool AskOwn(const OwnQuestion& question) override { return AskOwnOrCancel(question) == Answer::Yes; }
    Answer AskOwnOrCancel(const OwnQuestion& question) override {
        own.push_back(question);
        return AskYesNoCancel(question.Details.empty() ? question.Heading
                                                       : question.Heading + u"\n" + question.Details);
    }
    /// The buttons of the last question with answers of its own: "Keeps|GoesOn".
    [[nodiscard]] std::string Buttons() const {
        return own.empty() ? std::string() : ToUtf8(own.back().Keeps) + "|" + ToUtf8(own.back().GoesOn);
    }
    std::vector<OwnQuestion> own;
    void Inform(TextView message) override { told.emplace_back(message); }
    Answer answer = Answer::Cancel;
    std::deque<Answer> answers; ///< to the next questions in order; `answer` is for all behind them
    std::vector<Text> asked;
    std::vector<Text> told;
    std::function<void()> whileOpen; ///< what happens behind the box before it is answered
};

class FakeFiles final : public FileDialogs {
public:
    Text ShowOpen(const FileDialogRequest& request) override;
    Text ShowSave(const FileDialogRequest& request) override { return ShowOpen(request); }
    Text ChooseFolder(TextView) override { return chosen; }
    Text chosen;
    FileDialogRequest last;
    std::function<void()> whileOpen; ///< what happens behind the dialog before a file is chosen
};

class FakeWindow final : public MainWindow {
public:
    explicit FakeWindow(FakeLog& log) : m_log(log) {}
    void SetCaption(TextView value) override;
    void Show() override;
    void Close() override;
    [[nodiscard]] WindowState State() const override { return state; }
    void SetState(WindowState value) override { state = value; }
    [[nodiscard]] Placement Place() const override { return place; }
    void SetPlace(const Placement& value) override { place = value; }
    void SetSize(Twips width, Twips height) override;
    [[nodiscard]] bool FullScreen() const override { return fullScreen; }
    void SetFullScreen(bool on) override { fullScreen = on; }
    [[nodiscard]] Pixels InnerWidth() const override { return innerWidth; }
    [[nodiscard]] Pixels InnerHeight() const override { return innerHeight; }
    [[nodiscard]] Twips ScreenWidth() const override { return screenWidth; }
    [[nodiscard]] Twips ScreenHeight() const override { return screenHeight; }
    void MoveTabStrip(const Rect& value) override { strip = value; }
    void ShowTabStrip(bool show) override { showsStrip = show; }
    bool showsStrip = true;

    std::function<void()> closed; ///< what closing the window runs: its unload handler
    Text caption;
    WindowState state = WindowState::Normal;
    bool fullScreen = false;
    Placement place{{-1}, {-1}, {-1}, {-1}};
    Pixels innerWidth{1000}, innerHeight{700};
    Twips screenWidth{28800}, screenHeight{16200};
    Rect strip;

private:
    FakeLog& m_log;
};

/// Sessions in memory, newest first.
class FakeSessions final : public SessionFiles {
public:
    void WriteOwn(const std::string& bytes, Written done) override;
    [[nodiscard]] std::vector<KeptSession> Earlier() override { return earlier; }
    void Rewrite(TextView Id, const std::string& bytes, Written done) override;
    /// The disk gets to the writes that wait for it.
    void Arrive();
    std::string own;
    int writes = 0;
    bool refuses = false;        ///< the disk has no room
    bool refusesRewrite = false; ///< earlier sessions cannot be changed
    bool slow = false;           ///< writes wait until they arrive
    std::vector<KeptSession> earlier;

private:
    std::vector<std::function<void()>> m_waiting;
};

/// The layout file in memory.
class FakeLayoutFile final : public LayoutFile {
public:
    [[nodiscard]] std::optional<std::string> Read() override {
        return unreadable ? std::nullopt : std::optional(bytes);
    }
    Outcome Write(const std::string& value) override {
        ++writes;
        if (onWrite) onWrite();
        if (refuses) return Outcome::Failed;
        bytes = value;
        return Outcome::Done;
    }
    std::string bytes;
    int writes = 0;
    std::function<void()> onWrite; ///< what is the case when it is written
    bool unreadable = false;
    bool refuses = false;
};

class FakeSplash final : public SplashWindow {
public:
    explicit FakeSplash(FakeLog& log) : m_log(log) {}
    void Show() override { m_log.Add("splash"); }
    void Unload() override { m_log.Add("no splash"); }

private:
    FakeLog& m_log;
};

class FakeDefaultBrowser final : public DefaultBrowser {
public:
    bool IsDefault(TextView name, TextView path) override;
    Outcome MakeDefault(TextView name, TextView path) override;
    bool KnownDefault() override { return known; }
    bool isDefault = true;
    bool known = false;
    bool refuses = false;           ///< making one the default fails
    std::vector<std::string> calls; ///< "query NAME PATH" and "make NAME PATH"
};

/// Starts nothing; remembers what it was to start, each word in angle brackets.
class FakeShell final : public Shell {
public:
    [[nodiscard]] std::optional<Text> EnvironmentVariable(TextView name) const override;
    Outcome Start(const std::vector<Text>& words) override;
    [[nodiscard]] Text ProgramFor(TextView scheme) const override;
    [[nodiscard]] Text SystemName() const override { return system; }
    /// The programs started so far; forgets them.
    std::string Take() { return m_log.Take(); }
    std::map<Text, Text, std::less<>> variables;
    std::map<Text, Text, std::less<>> programs; ///< the desktop's, by scheme
    Text system;
    bool refuses = false; ///< no program starts

private:
    FakeLog m_log;
};

class FakeTrash final : public Trash {
public:
    Outcome Take(TextView path) override { return take ? take(path) : Outcome::Failed; }
    Outcome Restore(TextView path) override { return restore ? restore(path) : Outcome::Failed; }
    std::function<Outcome(TextView)> take; ///< nothing where there is no trash
    std::function<Outcome(TextView)> restore;
};

class FakeFolderWatch final : public FolderWatch {
public:
    void Watch(TextView folder) override {
        watched.emplace(folder);
        ++asked;
    }
    void Unwatch(TextView folder) override { watched.erase(Text(folder)); }
    std::set<Text> watched;
    int asked = 0; ///< how often it was to watch one
};

class FakeApplication final : public Application {
public:
    explicit FakeApplication(FakeLog& log) : m_log(log) {}
    void SetTitle(TextView value) override { m_log.Add("title " + ToUtf8(value)); }
    void DoEvents() override {
        m_log.Add("events");
        if (onEvents) onEvents();
    }
    std::function<void()> onEvents;

private:
    FakeLog& m_log;
};

class FakeChannel final : public InstanceChannel {
public:
    explicit FakeChannel(FakeLog& log) : m_log(log) {}
    Outcome RegisterMessage(TextView name) override;
    bool PreviousInstance(Instances allowed) override;
    Outcome SetForegroundWindow() override;
    Outcome SendMessage(TextView text) override;
    /// A later start of the program sends the message.
    void Arrives(const Text& text) const { Message(text); }
    bool running = false;                            ///< another instance runs
    bool windowFound = true;                         ///< and has its window
    std::function<void(const Text&)> runningHandles; ///< what it does with the message

private:
    FakeLog& m_log;
};

} // namespace tessa
