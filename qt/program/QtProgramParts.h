#pragma once
#include "base/Signal.h"
#include "base/os/MemoryReader.h"
#include "pages/SitePermissions.h"
#include "qt/bar/QtBarLook.h"
#include "qt/bar/QtCommandBar.h"
#include "qt/bar/QtMiddleClick.h"
#include "qt/bar/customize/QtCustomizeDialog.h"
#include "qt/base/QtDrawing.h"
#include "qt/base/QtKeys.h"
#include "qt/base/QtLatinKeys.h"
#include "qt/base/QtLog.h"
#include "qt/base/QtScreenFit.h"
#include "qt/base/QtText.h"
#include "qt/base/QtTyping.h"
#include "qt/desktop/QtDefaultBrowser.h"
#include "qt/desktop/QtFolderWatch.h"
#include "qt/desktop/QtFolders.h"
#include "qt/desktop/QtInstanceChannel.h"
#include "qt/desktop/QtInstanceProfile.h"
#include "qt/desktop/QtLayoutFile.h"
#include "qt/desktop/QtMediaKeys.h"
#include "qt/desktop/QtSessionFiles.h"
#include "qt/desktop/QtSettingsStorage.h"
#include "qt/desktop/QtShell.h"
#include "qt/desktop/QtSignals.h"
#include "qt/desktop/QtTrash.h"
#include "qt/desktop/QtWallClock.h"
#include "qt/dialogs/QtDialogs.h"
#include "qt/dialogs/QtForms.h"
#include "qt/dialogs/QtSplash.h"
#include "qt/dialogs/QtTaskView.h"
#include "qt/downloads/QtDownloads.h"
#include "qt/downloads/QtDownloadsPanel.h"
#include "qt/engine/QtBrowsingData.h"
#include "qt/engine/QtDictionaries.h"
#include "qt/engine/QtEngine.h"
#include "qt/engine/QtNotifications.h"
#include "qt/engine/QtRequests.h"
#include "qt/page/QtDevTools.h"
#include "qt/program/QtEngineSurroundings.h"
#include "qt/questions/QtCaptureBar.h"
#include "qt/questions/QtNoticeBar.h"
#include "qt/strip/QtTabList.h"
#include "qt/strip/QtTabStrip.h"
#include "qt/window/QtFileDrop.h"
#include "qt/window/QtFindBar.h"
#include "qt/window/QtMainWindow.h"
#include "qt/window/QtPageBars.h"
#include "qt/window/QtSessionOffer.h"
#include "qt/window/QtStatusBar.h"
#include "window/frmMain.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWebEngineProfile>
#include <optional>

class QtApplication final : public Application {
public:
    void SetTitle(TextView title) override { QCoreApplication::setApplicationName(ToQt(title)); }
    void DoEvents() override { QCoreApplication::processEvents(); }
};

/// Chooses how pages are drawn, at its place among the parts.
struct DrawnAs {
    explicit DrawnAs(SettingsStorageFactory& settings) { QtDrawing::Choose(settings); }
};

/// Everything outside the core that the program is made of, in the order in which it is made: what a part needs stands
/// before it.
struct QtProgramParts : EngineOptions, Report::Source, WindowTools, UserInput {
    QtProgramParts(int& argc, char** argv);

    void ApplyLoadOptions() override;
    void ApplyInternetOptions() override;
    void Clear(const BrowsingData& data, Forgotten done) override;
    [[nodiscard]] Report::Facts Read() override;
    void ShowFind(BrowserView& view) override;
    void ToggleDevTools() override;
    void ShowTabList() override;
    void Customize() override;
    [[nodiscard]] bool ShiftHeld() const override;
    void Copy(TextView text) override;
    void TakeProfile(QWebEngineProfile& made);
    void TellProfile();
    void TakePrivateProfile(QWebEngineProfile& made);
    void Follow(QWebEngineProfile& made);
    [[nodiscard]] ServiceTemplates Services();

    // Outlives the engine, which ends with the application.
    std::optional<QtInstanceProfile> ownProfile;
    QApplication qt;
    QtScreenFit screenFit;
    // Ends after everything that saves something: a second signal must not cut that short.
    std::optional<QtSignals> signals;
    QtFolders folders;
    QtLog log;
    QtSettingsStorage settings;
    DrawnAs drawn{settings};
    QtInstanceChannel channel;
    QtSessionFiles sessions;
    QtLayoutFile layout;
    QtApplication application;
    QtWallClock clock;
    QtMessageBoxes messages;
    QtFileDialogs files;
    QtSplash splash;
    QtDefaultBrowser defaultBrowser;
    QtShell shell;
    QtFolderWatch folderWatch;
    QtTrash trash;
    QtDownloads downloads;
    QtNotifications notifications;
    // Tests say by files of their own what the kernel would say.
    std::unique_ptr<MemoryReader> memory = SystemMemory(qgetenv("TESSAVIEW_MEMORY").toStdString());
    SitePermissions permissions{settings};
    QtLatinKeys latinKeys;
    QtMiddleClick middleClick;
    QtMediaKeys mediaKeys;
    std::optional<QtDictionaries> dictionaries; ///< once the engine is to start
    QtMainWindow window;
    QtDevTools devTools{window};
    QtRequests requests;
    QtBrowsingData browsingData;
    QPointer<QWebEngineProfile> profile, privateProfile;
    QtPageBars bars;
    QtEngineSurroundings surroundings;
    QtEngine engine;
    QtSessionOffer offer{window.PageArea(), clock};
    QtForms forms{window, splash};
    frmMain main;
    QtTabStrip strip;
    QtStatusBar statusBar;
    QtBarLook look;
    QtCommandBar commandBar;
    QtCustomize customize;
    QtKeys keys;
    QtTyping typing;
    QtFileDrop fileDrop;
    std::optional<QtTabList> tabList; ///< once somebody has opened it
    QtFindBar findBar;
    QtNoticeBar notices;
    QtCaptureBar captures;
    QtDownloadsPanel downloadsPanel{main.DownloadPanel(), window};
    QtTaskView taskView{main.TaskView(), window};
    QTimer journal, retry, sleep, relief, giveBack, homePages;
    Connections connections;
};
