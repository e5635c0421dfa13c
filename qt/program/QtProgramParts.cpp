#include "qt/program/QtProgramParts.h"

#include "pages/DecidedSites.h"
#include "pages/InstanceProfiles.h"
#include "qt/base/QtBuildInfo.h"
#include "qt/engine/QtWebOptions.h"
#include "qt/page/QtDialogScheme.h"
#include "qt/page/QtPage.h"
#include "qt/page/QtStartPage.h"
#include "qt/strip/QtTabStripAccessible.h"
#include "settings/InternetSettings.h"
#include "settings/SettingsStore.h"

#include <QClipboard>
#include <string_view>

namespace {

// Engines from 6.9 open the display themselves, by its name in the environment; Qt takes the option's for its own.
void NameDisplay(int argc, char** argv) {
    for (int i = 1; i + 1 < argc; ++i) {
        if (const std::string_view option = argv[i]; option == "-display" || option == "--display")
            qputenv("DISPLAY", argv[i + 1]);
    }
}

// What must be said before the application object exists.
int& BeforeApplication(int& argc, char** argv) {
    NameDisplay(argc, argv);
    QtStartPage::RegisterScheme();
    QtDialogScheme::RegisterScheme();
    // A widget is asked for once what it is to screen readers, as early as in its constructor.
    InstallTabStripAccessibility();
    QtSettingsStorage settings(QtFolders::Find(QtFolders::ProgramFile()).settings,
                               QtSettingsStorage::Damaged::LeftAlone);
    QtDrawing::Prepare(settings);
    // Not the display name, which Qt appends to the title of every window.
    QCoreApplication::setApplicationName(QStringLiteral("TessaView"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TESSAVIEW_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("tessaview"));
    return argc;
}

} // namespace

QtProgramParts::QtProgramParts(int& argc, char** argv)
    : qt(BeforeApplication(argc, argv), argv),
      folders(QtFolders::Find(QtFolders::ProgramFile())),
      log(folders.state),
      settings(folders.settings),
      channel(folders.state),
      sessions(folders.state + QStringLiteral("/sessions")),
      layout(folders.program),
      surroundings(settings, permissions, window, bars, {FromQt(folders.GroupFolder()), FromQt(folders.favorites)}),
      engine(window.PageArea(), ownProfile.emplace(folders.data, folders.cache), surroundings),
      main({.window = window,
            .views = engine,
            .settings = settings,
            .messages = messages,
            .files = files,
            .splash = splash,
            .sessions = sessions,
            .layout = layout,
            .defaultBrowser = defaultBrowser,
            .shell = shell,
            .folderWatch = folderWatch,
            .trash = trash,
            .downloads = downloads,
            .forms = forms,
            .clock = clock,
            .offer = offer,
            .engineOptions = *this,
            .report = *this,
            .tools = *this,
            .input = *this,
            .programPath = FromQt(QCoreApplication::applicationFilePath()),
            .groupFolder = FromQt(folders.GroupFolder()),
            .favoritesFolder = FromQt(folders.favorites),
            .downloadsFile = FromQt(folders.state + QStringLiteral("/downloads")),
            .siteChoices = DecidedSites(permissions, engine.Profiles().External())}),
      strip(main.pcPage),
      statusBar(main.sbStatus),
      look(main.actBar, window),
      commandBar(main.actBar, window),
      customize(main.actBar, window),
      keys(window),
      typing(window),
      fileDrop(window),
      findBar(window.PageArea()),
      notices(window.PageArea()),
      captures(window.PageArea()) {
    offer.Reopen.ConnectForLife([this](const Text& id) { main.Sessions().Reopen(id); });
    offer.Dismiss.ConnectForLife([this](const Text& id) { main.Sessions().Settle(id); });
    offer.ShowAll.ConnectForLife([this] { main.ShowSessions(); });
}

void QtProgramParts::Clear(const BrowsingData& data, Forgotten done) {
    if (profile) return browsingData.Clear(data, *profile, std::move(done));
    done(Cleared::NotAll);
}

Report::Facts QtProgramParts::Read() {
    return {FromQt(QtBuildInfo::Text()), FromQt(QtBuildInfo::Drawing()), log.File().LastLines(Report::kLines)};
}

void QtProgramParts::ShowFind(BrowserView&) { findBar.Open(); }

void QtProgramParts::ToggleDevTools() { devTools.Toggle(engine.FrontPage()); }

void QtProgramParts::ShowTabList() {
    strip.ListRequested(strip.mapToGlobal(strip.rect().bottomRight() + QPoint(1, 1)));
}

void QtProgramParts::Customize() { customize.Open(); }

// A middle click means the same.
bool QtProgramParts::ShiftHeld() const {
    return middleClick.Now() || QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

void QtProgramParts::Copy(TextView text) { QGuiApplication::clipboard()->setText(ToQt(text)); }

void QtProgramParts::ApplyLoadOptions() {
    const SettingsStore store(settings);
    requests.Loads = {.images = store.LoadImages.Get(),
                      .animations = store.LoadAnimations.Get(),
                      .videos = store.LoadVideos.Get(),
                      .sounds = store.LoadSounds.Get()};
    engine.SetLoadOptions(requests.Loads);
}

void QtProgramParts::ApplyInternetOptions() {
    const InternetValues values = InternetSettings(settings).Get();
    QtWebOptions::ApplyProxy(values, profile);
    QtWebOptions::Apply(values, requests);
    for (const auto& each : {profile, privateProfile}) {
        if (each) QtWebOptions::Apply(values, *each);
    }
}

void QtProgramParts::TakeProfile(QWebEngineProfile& made) {
    browsingData.Watch(made);
    profile = &made;
    TellProfile();
    Follow(made);
}

void QtProgramParts::TellProfile() {
    const auto words = InstanceProfiles::WordsFor(profile->isOffTheRecord() ? 0 : ownProfile->Number());
    main.sbStatus.ProfileTip = words.Tip;
    main.sbStatus.Profile = words.Sign;
    if (words.Notice.empty()) return;
    profile->isOffTheRecord() ? statusBar.Complain(ToQt(words.Notice)) : statusBar.Notice(ToQt(words.Notice));
}

// Nothing of it is noted anywhere.
void QtProgramParts::TakePrivateProfile(QWebEngineProfile& made) {
    privateProfile = &made;
    Follow(made);
}

void QtProgramParts::Follow(QWebEngineProfile& made) {
    made.setUrlRequestInterceptor(&requests);
    ApplyInternetOptions();
    downloads.Follow(made);
    notifications.Follow(made);
    if (dictionaries) dictionaries->Follow(made);
}

ServiceTemplates QtProgramParts::Services() {
    const SettingsStore store(settings);
    return {store.SearchService.Get(), store.ShopService.Get(), store.FindService.Get()};
}
