#include "qt/QtIcons.h"

#include "qt/QtText.h"

#include <QPalette>
#include <QStringList>
#include <array>

namespace {

struct ToolIcon {
    TextView tool;
    TextView icon; ///< name in the icon theme
};

constexpr std::array kToolIcons{
    ToolIcon{u"mnuNewBlank", u"tab-new"},      ToolIcon{u"mnuOpenGroup", u"document-open"},
    ToolIcon{u"mnuClose", u"tab-close"},       ToolIcon{u"mnuSettings", u"configure"},
    ToolIcon{u"mnuExit", u"application-exit"}, ToolIcon{u"mnuGoBack", u"go-previous"},
    ToolIcon{u"mnuGoForward", u"go-next"},     ToolIcon{u"mnuStop", u"process-stop"},
    ToolIcon{u"mnuRefresh", u"view-refresh"},
};

} // namespace

// Stands outside the namespace, as Qt's macro demands.
static void LoadResources() { Q_INIT_RESOURCE(tessaview); }

QIcon QtIcons::Application() {
    LoadResources();
    return QIcon(QStringLiteral(":/tessaview.svg"));
}

void QtIcons::ChooseTheme(const QPalette& palette) {
    const QString system = QStringLiteral("/usr/share/icons");
    if (QStringList paths = QIcon::themeSearchPaths(); !paths.contains(system))
        QIcon::setThemeSearchPaths(paths << system);
    const bool dark = palette.color(QPalette::Window).lightnessF() < 0.5F;
    const QString light = QStringLiteral("breeze"), breeze = dark ? QStringLiteral("breeze-dark") : light;
    QIcon::setFallbackThemeName(breeze);
    // Without a theme of the desktop Qt does not ask the fallback either.
    if (QIcon::themeName().isEmpty() || QIcon::themeName().startsWith(light)) QIcon::setThemeName(breeze);
}

QIcon QtIcons::ForTool(TextView name) {
    for (const ToolIcon& each : kToolIcons) {
        if (each.tool == name) return QIcon::fromTheme(ToQt(each.icon));
    }
    return {};
}
