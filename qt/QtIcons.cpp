#include "qt/QtIcons.h"

#include "qt/QtPalette.h"
#include "qt/QtText.h"

#include <QPalette>
#include <QPixmap>
#include <QStringList>

// Stands outside the namespace, as Qt's macro demands.
static void LoadResources() { Q_INIT_RESOURCE(tessaview); }

QIcon QtIcons::Own(const QString& name) {
    LoadResources();
    return QIcon(QStringLiteral(":/%1.svg").arg(name));
}

QIcon QtIcons::Application() { return Own(QStringLiteral("tessaview")); }

void QtIcons::ChooseTheme(const QPalette& palette) {
    const QString system = QStringLiteral("/usr/share/icons");
    if (QStringList paths = QIcon::themeSearchPaths(); !paths.contains(system))
        QIcon::setThemeSearchPaths(paths << system);
    const QString light = QStringLiteral("breeze"),
                  breeze = QtPalette::IsDark(palette) ? QStringLiteral("breeze-dark") : light;
    QIcon::setFallbackThemeName(breeze);
    // Without a theme of the desktop Qt does not ask the fallback either. "hicolor" holds no pictures for commands.
    const QString theme = QIcon::themeName();
    if (theme.isEmpty() || theme == u"hicolor" || theme.startsWith(light)) QIcon::setThemeName(breeze);
}

QIcon QtIcons::Of(const Picture& picture) {
    return picture.Name.empty() ? QIcon() : QIcon::fromTheme(ToQt(picture.Name));
}

QIcon QtIcons::OfOrBlank(const Picture& picture) {
    QIcon icon = Of(picture);
    if (!icon.isNull()) return icon;
    // Only larger pictures are made smaller, so it is as large as any place for one.
    QPixmap blank(64, 64);
    blank.fill(Qt::transparent);
    return QIcon(blank);
}
