#include "qt/script/PdfFeet.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

namespace tessa::qt {

namespace {

constexpr double kPointsPerInch = 72;
constexpr int kFootDots = 144;     ///< an inch
constexpr double kFootFont = 7;    ///< points
constexpr double kFootMargin = 28; ///< points, at both sides and below

void DrawFoot(QPainter& painter, const PdfFeet::Foot& foot) {
    const double scale = kFootDots / kPointsPerInch;
    const QRectF line(kFootMargin * scale, (foot.height - kFootMargin) * scale, (foot.width - 2 * kFootMargin) * scale,
                      kFootFont * 2 * scale);
    QFont font;
    font.setPointSizeF(kFootFont);
    painter.setFont(font);
    const QFontMetricsF metrics(font, painter.device());
    const double room = line.width() - metrics.horizontalAdvance(foot.number) - metrics.averageCharWidth() * 2;
    painter.drawText(line, Qt::AlignLeft, metrics.elidedText(foot.words, Qt::ElideMiddle, room));
    painter.drawText(line, Qt::AlignRight, foot.number);
}

} // namespace

// Drawn by Qt, which has fonts for every script.
bool PdfFeet::Draw(const std::vector<Foot>& feet, const QString& file, const std::atomic<bool>& stop) {
    QPdfWriter writer(file);
    writer.setResolution(kFootDots);
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    for (const Foot& foot : feet) {
        const QPageSize paper(QSizeF(foot.width, foot.height), QPageSize::Point, {}, QPageSize::ExactMatch);
        writer.setPageLayout(QPageLayout(paper, QPageLayout::Portrait, QMarginsF()));
        if (stop || (!painter.isActive() ? !painter.begin(&writer) : !writer.newPage())) return false;
        DrawFoot(painter, foot);
    }
    return painter.end();
}

} // namespace tessa::qt
