#pragma once
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeDownloads.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FakeProgram.h"
#include "tests/fakes/FakeSettings.h"
#include "window/frmMain.h"

/// What a main window needs of the world outside, for a test or a benchmark that looks at little of it.
struct FakeSurroundings {
    /// For a window whose pages come from `views`, and which has a window or a place for its sessions of its own.
    MainWindowPlatform Platform(BrowserViewFactory& views, MainWindow* ownWindow = nullptr,
                                SessionFiles* ownSessions = nullptr) {
        return {.window = ownWindow ? *ownWindow : frame,
                .views = views,
                .settings = settings,
                .messages = messages,
                .files = files,
                .splash = splash,
                .sessions = ownSessions ? *ownSessions : sessions,
                .layout = layout,
                .defaultBrowser = defaultBrowser,
                .shell = shell,
                .folderWatch = folderWatch,
                .trash = trash,
                .downloads = downloads,
                .forms = forms,
                .clock = clock,
                .offer = offer,
                .engineOptions = engineOptions,
                .report = report,
                .tools = tools,
                .input = input,
                .programPath = {},
                .groupFolder = {}};
    }

    FakeLog log;
    FakeSettings settings;
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
    FakeForms forms;
    FakeClock clock;
    FakeOffer offer;
    FakeEngineOptions engineOptions{log};
    FakeReport report;
    FakeTools tools;
    FakeInput input;
};
