#include "qt/base/Icons.h"

#include "qt/base/Palette.h"
#include "qt/base/Resources.h"
#include "qt/base/SelectedIcon.h"
#include "qt/base/Strings.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStringList>
#include <algorithm>

namespace tessa::qt {

QIcon Icons::Own(const QString& name) {
    Resources::Load();
    return QIcon(QStringLiteral(":/%1.svg").arg(name));
}

QIcon Icons::Application() { return Own(QStringLiteral("tessaview")); }

void Icons::ChooseTheme(const QPalette& palette) {
    const QString system = QStringLiteral("/usr/share/icons");
    if (QStringList paths = QIcon::themeSearchPaths(); !paths.contains(system))
        QIcon::setThemeSearchPaths(paths << system);
    const QString light = QStringLiteral("breeze"),
                  breeze = Palette::IsDark(palette) ? QStringLiteral("breeze-dark") : light;
    QIcon::setFallbackThemeName(breeze);
    // Without a theme of the desktop Qt does not ask the fallback either. "hicolor" holds no pictures for commands.
    const QString theme = QIcon::themeName();
    if (theme.isEmpty() || theme == u"hicolor" || theme.startsWith(light)) QIcon::setThemeName(breeze);
}

QIcon Icons::Of(const Picture& picture) {
    return picture.Name.empty() ? QIcon() : QIcon::fromTheme(ToQt(picture.Name));
}

QIcon Icons::OfOrBlank(const Picture& picture) {
    QIcon icon = Of(picture);
    if (!icon.isNull()) return WithSelectedLook(icon);
    // Only larger pictures are made smaller, so it is as large as any place for one.
    QPixmap blank(64, 64);
    blank.fill(Qt::transparent);
    return QIcon(blank);
}

QIcon Icons::WithBadge(const QIcon& icon, std::size_t number) {
    if (number == 0 || icon.isNull()) return icon;
    constexpr int kSize = 44;
    constexpr int kScale = 2;
    QPixmap picture = icon.pixmap(QSize(kSize, kSize) / kScale, kScale);
    picture.setDevicePixelRatio(1);
    QPixmap all(kSize, kSize);
    all.fill(Qt::transparent);
    QPainter painter(&all);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPixmap(QRect(0, 0, kSize, kSize), picture);
    const QString text = number > 99 ? QStringLiteral("99+") : QString::number(number);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(20);
    painter.setFont(font);
    const int width = std::max(24, painter.fontMetrics().horizontalAdvance(text) + 8);
    const QRect place(kSize - width, kSize - 24, width, 24);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(201, 52, 0));
    painter.drawRoundedRect(place, 12, 12);
    painter.setPen(Qt::white);
    painter.drawText(place, Qt::AlignCenter, text);
    painter.end();
    all.setDevicePixelRatio(kScale);
    return QIcon(all);
}

} // namespace tessa::qt
