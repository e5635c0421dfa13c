#include "qt/base/Tip.h"

#include <QFontMetrics>
#include <QStringList>
#include <QTextLayout>
#include <QToolTip>

namespace tessa::qt {

namespace {

constexpr int kTipWidth = 34; // heights of the font

// At the end of a line a blank is as good as none.
QString LinePart(const QString& line, int from, int length) { return line.mid(from, length).trimmed().toHtmlEscaped(); }

void AddBroken(QStringList& parts, const QString& line, const QFont& font, int width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(line, font);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine part = layout.createLine(); part.isValid(); part = layout.createLine()) {
        part.setLineWidth(width);
        parts.append(LinePart(line, part.textStart(), part.textLength()));
    }
    layout.endLayout();
}

} // namespace

namespace Tip {

QString Html(const QString& text) {
    const QFont font = QToolTip::font();
    const int width = kTipWidth * QFontMetrics(font).height();
    QStringList parts;
    for (const QString& line : text.split(QLatin1Char('\n'))) AddBroken(parts, line, font, width);
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(parts.join(QStringLiteral("<br/>")));
}

} // namespace Tip

} // namespace tessa::qt
