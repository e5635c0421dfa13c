#pragma once
#include "base/Address.h"
#include "base/os/MemoryReader.h"
#include "forms/FormHost.h"
#include "groups/GroupCheck.h"
#include "platform/Application.h"
#include "platform/BrowserView.h"
#include "platform/DefaultBrowser.h"
#include "platform/Dialogs.h"
#include "platform/Downloads.h"
#include "platform/FolderWatch.h"
#include "platform/MainWindow.h"
#include "platform/SessionFiles.h"
#include "platform/Shell.h"
#include "platform/SteadyClock.h"
#include "platform/Trash.h"
#include "platform/UserInput.h"
#include "platform/VisitStore.h"
#include "platform/WallClock.h"
#include "platform/WindowTools.h"
#include "sessions/SessionOffer.h"
#include "settings/EngineOptions.h"
#include "window/Report.h"

namespace tessa {

/// What surrounds a main window that nobody ever sees: whatever it wants of the desktop, there is nothing.
namespace UnseenDesktop {

/// A view whose page never comes into being, because the process ends before the next turn of the event loop.
class UnseenView final : public BrowserView {
public:
    Outcome Navigate(TextView address) override {
        m_address = address;
        return Outcome::Done;
    }
    Outcome Stop() override { return Outcome::Done; }
    Outcome Refresh() override { return Outcome::Done; }
    Outcome GoBack() override { return Outcome::Failed; }
    Outcome GoForward() override { return Outcome::Failed; }
    Outcome GoHome() override { return Outcome::Done; }
    Outcome ExecWB(BrowserCommand) override { return Outcome::Failed; }
    [[nodiscard]] bool Busy() const override { return false; }
    [[nodiscard]] PageProgress Progress() const override { return PageProgress::Loading; }
    [[nodiscard]] Text LocationURL() const override { return m_address; }
    [[nodiscard]] bool Blank() const override { return m_address == Address::kBlank; }
    [[nodiscard]] Text LocationName() const override { return {}; }
    [[nodiscard]] PageDocument* Document() override { return nullptr; }
    [[nodiscard]] int ZoomLevel() const override { return 2; }
    [[nodiscard]] PageTools* Tools() override { return nullptr; }
    [[nodiscard]] PageLife* Life() override { return nullptr; }
    [[nodiscard]] PageReading* Reading() override { return nullptr; }
    [[nodiscard]] PageSecurity Security() const override { return PageSecurity::Awaited; }
    [[nodiscard]] bool MayHold() const override { return false; }
    void AskToLeave(LeaveReason, std::function<void(bool)> told) override { told(false); }
    void AskUserToLeave(std::function<void(bool)> answered) override { answered(true); }
    void LetUserStay() override {}
    [[nodiscard]] std::string History() const override { return {}; }
    Outcome Restore(const std::string&, TextView address) override { return Navigate(address); }
    Outcome RestoreLater(const std::string&, TextView address) override { return Navigate(address); }
    [[nodiscard]] bool Audible() const override { return false; }
    [[nodiscard]] bool Muted() const override { return false; }
    void SetMuted(bool) override {}
    void SetVisible(bool) override {}
    void SetTabStop(bool) override {}
    void Move(const Rect&) override {}
    void MoveLeft(Twips) override {}
    void BringToFront() override {}
    void ShowBeside() override {}
    void SetFocus() override {}

private:
    Text m_address;
};

class UnseenViews final : public BrowserViewFactory {
public:
    std::unique_ptr<BrowserView> Create(std::int16_t, BrowserViewEvents&, Privacy) override {
        return std::make_unique<UnseenView>();
    }
    [[nodiscard]] bool PagesWait() const override { return false; }
};

class NoWindow final : public MainWindow {
public:
    void SetCaption(TextView) override {}
    void Show() override {}
    void Close() override {}
    [[nodiscard]] WindowState State() const override { return WindowState::Normal; }
    void SetState(WindowState) override {}
    [[nodiscard]] Placement Place() const override { return {}; }
    void SetPlace(const Placement&) override {}
    void SetSize(Twips, Twips) override {}
    [[nodiscard]] bool FullScreen() const override { return false; }
    void SetFullScreen(bool) override {}
    [[nodiscard]] Pixels InnerWidth() const override { return {}; }
    [[nodiscard]] Pixels InnerHeight() const override { return {}; }
    [[nodiscard]] Twips ScreenWidth() const override { return {}; }
    [[nodiscard]] Twips ScreenHeight() const override { return {}; }
    void MoveTabStrip(const Rect&) override {}
    void ShowTabStrip(bool) override {}
};

class NoApplication final : public Application {
public:
    void SetTitle(TextView) override {}
    void DoEvents() override {}
};

class NoForms final : public FormHost {
public:
    void Show(frmAddFavorite&) override {}
    void Show(frmDefBrowser&) override {}
    void Show(frmGroupCheck&) override {}
    void Show(frmGroupCompare&) override {}
    void Show(frmInternetOptions&) override {}
    void Show(frmOrganizeFavorites&) override {}
    void Show(frmRenameGroup&) override {}
    void Show(frmRenameTab&) override {}
    void Show(frmResize&) override {}
    void Show(frmSessions&) override {}
    void Show(frmSettings&) override {}
    void Show(frmSplash&) override {}
    void Show(frmTessaGroup&) override {}
};

class NoTools final : public WindowTools {
public:
    void ShowFind(BrowserView&) override {}
    void ToggleDevTools() override {}
    void ShowTabList() override {}
    void MoveDividers() override {}
    void Customize() override {}
};

class NoInput final : public UserInput {
public:
    [[nodiscard]] bool ShiftHeld() const override { return false; }
    void Copy(TextView) override {}
};

class NoVisits final : public VisitStore {
public:
    void Keep(HistoryVisit) override {}
    void Find(const HistoryQuery&, std::function<void(HistoryFound)>) override {}
    void Load(std::vector<Text>, std::function<void(std::vector<HistoryEntry>)>) override {}
    void Look(std::function<void(HistoryOverview)>) override {}
    void Remove(HistoryRemoval, std::function<void(std::int64_t)>) override {}
    void Limit(std::int32_t, std::int32_t) override {}
    [[nodiscard]] bool Works() const override { return false; }
};

class NoClock final : public WallClock {
public:
    [[nodiscard]] std::int64_t Now() const override { return 0; }
    [[nodiscard]] Text Words(std::int64_t) const override { return {}; }
    [[nodiscard]] std::int64_t DayBegin(std::int64_t seconds) const override { return seconds; }
};

class NoSteadyClock final : public SteadyClock {
public:
    [[nodiscard]] Time Now() const override { return {}; }
};

class NoMemory final : public MemoryReader {
public:
    [[nodiscard]] std::vector<MemoryRoom> Read() override { return {}; }
};

class NoProbe final : public AddressProbe {
public:
    void Ask(const Text&, std::function<void(const ProbeAnswer&)>) override {}
    void StopAll() override {}
};

class NoOffer final : public SessionOffer {
public:
    void Offer(TextView, const Session&) override {}
    void Withdraw() override {}
};

class NoEngineOptions final : public EngineOptions {
public:
    void ApplyLoadOptions() override {}
    void ApplyInternetOptions() override {}
    void Clear(const BrowsingData&, Forgotten done) override { done(Cleared::NotAll); }
};

class NoReport final : public Report::Source {
public:
    [[nodiscard]] Report::Facts Read() override { return {}; }
};

class NoSplash final : public SplashWindow {
public:
    void Show() override {}
    void Unload() override {}
};

/// Nobody is asked, so nobody agrees to anything.
class NobodyToAsk final : public MessageBoxes {
public:
    Answer AskYesNoCancel(TextView) override { return Answer::Cancel; }
    bool AskOwn(const OwnQuestion&) override { return false; }
    Answer AskOwnOrCancel(const OwnQuestion&) override { return Answer::Cancel; }
    void Inform(TextView) override {}
};

class NoFileDialogs final : public FileDialogs {
public:
    Text ShowOpen(const FileDialogRequest&) override { return {}; }
    Text ShowSave(const FileDialogRequest&) override { return {}; }
    Text ChooseFolder(TextView) override { return {}; }
};

/// The sessions are those of the instance that runs.
class NoSessions final : public SessionFiles {
public:
    void WriteOwn(const std::string&, Written) override {}
    [[nodiscard]] std::vector<KeptSession> Earlier() override { return {}; }
    void Rewrite(TextView, const std::string&, Written) override {}
};

/// Whether the user is to be asked, a start finds out that has a window for the question.
class NothingToAsk final : public DefaultBrowser {
public:
    [[nodiscard]] bool IsDefault(TextView, TextView) override { return true; }
    [[nodiscard]] bool KnownDefault() override { return true; }
    Outcome MakeDefault(TextView, TextView) override { return Outcome::Failed; }
};

class NoShell final : public Shell {
public:
    [[nodiscard]] std::optional<Text> EnvironmentVariable(TextView) const override { return std::nullopt; }
    Outcome Start(const std::vector<Text>&) override { return Outcome::Failed; }
    [[nodiscard]] Text ProgramFor(TextView) const override { return {}; }
    [[nodiscard]] Text SystemName() const override { return {}; }
};

class NoFolderWatch final : public FolderWatch {
public:
    void Watch(TextView) override {}
    void Unwatch(TextView) override {}
};

class NoTrash final : public Trash {
public:
    Outcome Take(TextView) override { return Outcome::Failed; }
    Outcome Restore(TextView) override { return Outcome::Failed; }
};

class NoDownloads final : public DownloadDesktop {
public:
    [[nodiscard]] Text Folder() override { return {}; }
    Outcome Open(TextView) override { return Outcome::Failed; }
    Outcome ShowInFolder(TextView) override { return Outcome::Failed; }
    Outcome Fetch(std::int32_t, TextView) override { return Outcome::Failed; }
    [[nodiscard]] std::int64_t Now() override { return 0; }
    [[nodiscard]] std::int64_t Time() override { return 0; }
};

} // namespace UnseenDesktop

} // namespace tessa
