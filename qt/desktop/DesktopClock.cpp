#include "qt/desktop/DesktopClock.h"

#include "qt/base/Strings.h"

#include <QDateTime>
#include <QLocale>

namespace tessa::qt {

namespace {

QString TimeOfDay(const QLocale& locale, QTime time) {
    // Some ways of writing times have seconds even in their short form.
    QString format = locale.timeFormat(QLocale::ShortFormat);
    return locale.toString(time, format.remove(QStringLiteral(":ss")));
}

} // namespace

std::int64_t DesktopClock::Now() const { return QDateTime::currentSecsSinceEpoch(); }

Text DesktopClock::Words(std::int64_t seconds) const {
    const QDateTime time = QDateTime::fromSecsSinceEpoch(seconds);
    const QDate today = QDate::currentDate();
    const QLocale locale;
    QString day = locale.toString(time.date(), QLocale::LongFormat);
    if (time.date() == today) day = QStringLiteral("Today");
    if (time.date().daysTo(today) == 1) day = QStringLiteral("Yesterday");
    return FromQt(day + QStringLiteral(", ") + TimeOfDay(locale, time.time()));
}

std::int64_t DesktopClock::DayBegin(std::int64_t seconds) const {
    return QDateTime::fromSecsSinceEpoch(seconds).date().startOfDay().toSecsSinceEpoch();
}

} // namespace tessa::qt
