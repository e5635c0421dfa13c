#pragma once
#include "mainwindow/frmMain.h"
#include "pages/MemoryFiles.h"
#include "pages/SitePermissions.h"
#include "qt/QtBarLook.h"
#include "qt/QtBrowsingData.h"
#include "qt/QtCaptureBar.h"
#include "qt/QtCommandBar.h"
#include "qt/QtCustomizeDialog.h"
#include "qt/QtDefaultBrowser.h"
#include "qt/QtDevTools.h"
#include "qt/QtDialogs.h"
#include "qt/QtDictionaries.h"
#include "qt/QtDownloads.h"
#include "qt/QtDownloadsPanel.h"
#include "qt/QtDrawing.h"
#include "qt/QtEngine.h"
#include "qt/QtFileDrop.h"
#include "qt/QtFindBar.h"
#include "qt/QtFolderWatch.h"
#include "qt/QtFolders.h"
#include "qt/QtInstanceChannel.h"
#include "qt/QtInstanceProfile.h"
#include "qt/QtKeys.h"
#include "qt/QtLatinKeys.h"
#include "qt/QtLayoutFile.h"
#include "qt/QtLog.h"
#include "qt/QtMainWindow.h"
#include "qt/QtMediaKeys.h"
#include "qt/QtMiddleClick.h"
#include "qt/QtNoticeBar.h"
#include "qt/QtNotifications.h"
#include "qt/QtPageBars.h"
#include "qt/QtRenameGroup.h"
#include "qt/QtRequests.h"
#include "qt/QtScreenFit.h"
#include "qt/QtSessionFiles.h"
#include "qt/QtSessionOffer.h"
#include "qt/QtSettingsStorage.h"
#include "qt/QtShell.h"
#include "qt/QtSignals.h"
#include "qt/QtSplash.h"
#include "qt/QtStatusBar.h"
#include "qt/QtTabList.h"
#include "qt/QtTabStrip.h"
#include "qt/QtTaskView.h"
#include "qt/QtText.h"
#include "qt/QtTrash.h"
#include "qt/QtTyping.h"

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
struct QtProgramParts {
    QtProgramParts(int& argc, char** argv);

    void OfferSession(TextView id, const Session& session);
    [[nodiscard]] CommandHost Operations();
    void ApplyLoadOptions();
    void ApplyInternetOptions();
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
    MemoryFiles memory{qgetenv("TESSAVIEW_MEMORY").toStdString()};
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
    QtEngine engine;
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
    QtSessionOffer offer;
    QtCaptureBar captures;
    QtDownloadsPanel downloadsPanel{main.DownloadPanel, window};
    QtTaskView taskView{main.TaskView, window};
    QtPageBars bars;
    QTimer journal, retry, sleep, relief, giveBack, homePages;
};
