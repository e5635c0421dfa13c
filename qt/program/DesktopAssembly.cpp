#include "qt/program/DesktopAssembly.h"

#include "qt/base/Strings.h"
#include "qt/base/paint/DarkFrames.h"
#include "qt/blocking/ElementHiding.h"
#include "qt/blocking/EmptyAnswers.h"
#include "qt/page/DialogScheme.h"
#include "qt/page/StartPageScheme.h"
#include "qt/strip/TabStripAccessible.h"

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
    StartPageScheme::RegisterScheme();
    DialogScheme::RegisterScheme();
    ElementHiding::RegisterScheme();
    EmptyAnswers::RegisterScheme();
    // A widget is asked for once what it is to screen readers, as early as in its constructor.
    InstallTabStripAccessibility();
    DiskSettingsStorage settings(Folders::Find(Folders::ProgramFile()).settings,
                                 DiskSettingsStorage::Damaged::LeftAlone);
    DrawingChoice::Prepare(settings);
    // Not the display name, which Qt appends to the title of every window.
    QCoreApplication::setApplicationName(QStringLiteral("TessaView"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TESSAVIEW_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("tessaview"));
    return argc;
}

} // namespace

void DesktopApplication::SetTitle(TextView title) { QCoreApplication::setApplicationName(ToQt(title)); }

void DesktopApplication::DoEvents() { QCoreApplication::processEvents(); }

DesktopAssembly::DesktopAssembly(int& argc, char** argv)
    : m_qt(BeforeApplication(argc, argv), argv),
      folders(Folders::Find(Folders::ProgramFile())),
      log(folders.state),
      settings(folders.settings),
      channel(folders.state),
      sessions(folders.state + QStringLiteral("/sessions")),
      layout(folders.program) {
    m_ownProfile.emplace(folders.data, folders.cache);
    DarkFrames::Install();
}

} // namespace tessa::qt
