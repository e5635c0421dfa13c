// The engine, its pages and the bars around them, and what they do in the program.
#include "qt/program/QtProgram.h"
#include "qt/program/QtProgramParts.h"

#include "qt/engine/QtBrowserView.h"
#include "qt/page/QtPage.h"
#include "startpage/HomePages.h"

#include <chrono>

namespace {
constexpr std::chrono::milliseconds kHomePageDelay{150};
} // namespace

void QtProgram::WireStartPage() {
    // A file that is saved changes its folder more than once.
    m->homePages.setSingleShot(true);
    m->homePages.setInterval(kHomePageDelay);
    m->homePages.callOnTimeout([this] {
        const auto shown = m->main.RefreshHomePages();
        if (shown == HomePages::Shown::Later) m->homePages.start();
    });
    m->main.Menus().FoldersChanged.ConnectForLife([this] { m->homePages.start(); });
    // Before they are read, so that no change falls in between.
    m->surroundings.ReadsFolders.ConnectForLife([this] { m->main.Menus().WatchFolders(); });
    m->engine.Told().StartLink.ConnectForLife(
        [this](const QUrl& url) { m->main.OpenStartLink(url.toEncoded().toStdString()); });
}

void QtProgram::WirePages() {
    m->main.TaskView().TellDrawing(QtDrawing::InSoftware() ? DrawingWay::Software : DrawingWay::Graphics);
    m->permissions.Forgotten.ConnectForLife(
        [this](const SiteDecision& forgotten) { m->engine.ForgetDecision(forgotten); });
    m->engine.Told().SaveAddress.ConnectForLife(
        [this](QtPage& page, const QUrl& address, const Text& path) { m->downloads.Save(page, address, path); });
    m->engine.Told().Notice.ConnectForLife([this](const QString& words) { m->statusBar.Notice(words); });
    m->mediaKeys.Page = [this] { return m->engine.MediaPage(); };
    m->engine.Told().MenuPlace.ConnectForLife(
        [this](std::optional<QPoint> at) { m->commandBar.Menus().PlaceNext(at); });
    m->engine.Told().ShowInspector.ConnectForLife([this](QtPage& page) { m->devTools.Show(page); });
    m->downloads.List = &m->main.Downloads();
    m->downloads.Documents = &m->engine.Output().Documents();
    m->downloads.Profile = [this] { return m->engine.Profiles().Get(); };
    m->downloads.MaySave = [this](QWebEnginePage* page, const QUrl& address) {
        auto* view = m->engine.ViewOf(page);
        return !view || view->Questions()->permissions.MaySave(address);
    };
    m->engine.Output().Say.ConnectForLife([this](const QString& message) { m->main.sbStatus.Say(FromQt(message)); });
    m->downloadsPanel.FocusPage.ConnectForLife([this] { m->main.FocusPage(); });
    m->notifications.Clicked.ConnectForLife([this] { m->window.ComeBack(); });
    m->notifications.ShowInside = [this](QtNoticeBar::Notice notice) { return m->notices.Add(std::move(notice)); };
    m->notifications.TakeBack = [this](int number) { m->notices.Remove(number); };
}

void QtProgram::WireEngine() {
    WireStartPage();
    m->requests.Templates = [this] { return m->Services(); };
    m->engine.Profiles().Made.ConnectForLife([this](QWebEngineProfile& profile) { m->TakeProfile(profile); });
    m->engine.Profiles().PrivateMade.ConnectForLife(
        [this](QWebEngineProfile& profile) { m->TakePrivateProfile(profile); });
    m->engine.Told().Visited.ConnectForLife([this](const QUrl& url) { m->browsingData.NoteVisit(url); });
    WirePages();
    m->bars.Add(m->captures, QtPageBars::Side::Above);
    m->bars.Add(m->offer, QtPageBars::Side::Above);
    m->bars.Add(m->findBar, QtPageBars::Side::Below);
    m->bars.Add(m->notices, QtPageBars::Side::Below);
    m->notices.Changed.ConnectForLife([this] { m->engine.Relayout(); });
    m->captures.Changed.ConnectForLife([this] { m->engine.Relayout(); });
    m->captures.Stop.ConnectForLife([this] { m->engine.StopCaptures(); });
    // A view reports at its end what it captures no more, and views end after the bar that shows it.
    m->connections += m->engine.Told().CapturesChanged.Connect([this] { m->captures.Tell(m->engine.Captures()); });
    m->offer.Changed.ConnectForLife([this] { m->engine.Relayout(); });
    m->findBar.Page = [this] { return m->engine.FrontPage(); };
    m->findBar.Changed.ConnectForLife([this] { m->engine.Relayout(); });
    m->engine.Schedule().FrontChanged.ConnectForLife([this] { m->findBar.OnPageChanged(); });
    m->findBar.Typed.ConnectForLife([this] { m->main.actBar.NoteTyped(); });
    m->findBar.FocusPage.ConnectForLife([this] { m->main.FocusPage(); });
    WireStrip();
    m->engine.Told().IconChanged.ConnectForLife([this](std::int32_t index) { m->strip.RefreshIcons(index); });
}
