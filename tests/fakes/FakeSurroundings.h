#pragma once
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeDownloads.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakeMemory.h"
#include "tests/fakes/FakeProgram.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/fakes/FakeVisits.h"
#include "window/frmMain.h"

namespace tessa {

/// What a test has of its own in place of a fake.
struct OwnParts {
    MainWindow* window = nullptr;
    SettingsStorageFactory* settings = nullptr;
    SessionFiles* sessions = nullptr;
    LayoutFile* layout = nullptr;
    MemoryReader* memory = nullptr;
    AddressProbe* probe = nullptr;
};

/// What a main window needs of the world outside, for a test or a benchmark. Shows no dialog.
struct FakeSurroundings : FakeForms {
    /// The settings are those of a first start unless others are shared.
    explicit FakeSurroundings(FakeSettings* shared = nullptr) : settings(shared ? *shared : ownSettings) {}

    /// For a window whose pages come from `views`.
    MainWindowPlatform Platform(BrowserViewFactory& views, const OwnParts& own = {}) {
        return {.window = own.window ? *own.window : frame,
                .views = views,
                .settings = own.settings ? *own.settings : settings,
                .messages = messages,
                .files = files,
                .splash = splash,
                .sessions = own.sessions ? *own.sessions : sessions,
                .layout = own.layout ? *own.layout : layout,
                .defaultBrowser = defaultBrowser,
                .shell = shell,
                .folderWatch = folderWatch,
                .trash = trash,
                .downloads = downloads,
                .forms = *this,
                .clock = clock,
                .steady = steady,
                .memory = own.memory ? *own.memory : memory,
                .offer = offer,
                .engineOptions = engineOptions,
                .report = report,
                .tools = tools,
                .input = input,
                .visits = visits,
                .probe = own.probe ? *own.probe : probe,
                .programPath = {},
                .groupFolder = {}};
    }

    FakeLog log;
    FakeSettings ownSettings;
    FakeSettings& settings;
    FakeMessages messages;
    FakeFiles files;
    FakeWindow frame{log};
    FakeSplash splash{log};
    FakeSessions sessions;
    FakeLayoutFile layout;
    FakeDefaultBrowser defaultBrowser;
    FakeShell shell;
    FakeFolderWatch folderWatch;
    FakeTrash trash;
    FakeDownloads downloads;
    FakeClock clock;
    FakeSteadyClock steady;
    FakeMemory memory;
    FakeOffer offer;
    FakeEngineOptions engineOptions{log};
    FakeReport report;
    FakeTools tools;
    FakeInput input;
    FakeVisits visits;
    FakeProbe probe;
};

} // namespace tessa
