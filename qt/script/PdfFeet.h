#pragma once
#include <QString>
#include <atomic>
#include <vector>

namespace tessa::qt {

/// What stands below the pages of a bound PDF.
namespace PdfFeet {

/// The foot of one page, whose size is in points.
struct Foot {
    double width = 0, height = 0;
    QString words, number;
};

/// Draws a PDF of nothing but feet, a page each. False when that could not be, or `stop` came.
[[nodiscard]] bool Draw(const std::vector<Foot>& feet, const QString& file, const std::atomic<bool>& stop);

} // namespace PdfFeet

} // namespace tessa::qt
