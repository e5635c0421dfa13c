#include "qt/program/QtDesktopAssembly.h"

#include "qt/base/QtText.h"
#include "qt/page/QtDialogScheme.h"
#include "qt/page/QtStartPage.h"
#include "qt/strip/QtTabStripAccessible.h"

#include <string_view>

namespace tessa::qt {

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

void QtApplication::SetTitle(TextView title) { QCoreApplication::setApplicationName(ToQt(title)); }

void QtApplication::DoEvents() { QCoreApplication::processEvents(); }

QtDesktopAssembly::QtDesktopAssembly(int& argc, char** argv)
    : m_qt(BeforeApplication(argc, argv), argv),
      folders(QtFolders::Find(QtFolders::ProgramFile())),
      log(folders.state),
      settings(folders.settings),
      channel(folders.state),
      sessions(folders.state + QStringLiteral("/sessions")),
      layout(folders.program) {
    m_ownProfile.emplace(folders.data, folders.cache);
}

} // namespace tessa::qt
