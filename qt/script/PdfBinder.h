#pragma once
#include <QString>
#include <QStringList>
#include <atomic>
#include <vector>

namespace tessa::qt {

/// Binds several PDF files to one, with an outline entry for each, and title, address and page number in the foot.
namespace PdfBinder {

struct Part {
    QString file;
    QString title, address;
};

struct Bound {
    QString refusal{};  ///< why the file was not written, a sentence; empty when it was
    QStringList left{}; ///< parts that are no PDF
};

/// Writes the file, which is replaced whole, or stays as it is when that fails or `stop` comes. The files are read page
/// by page, so memory does not grow with them. In any thread.
[[nodiscard]] Bound Bind(const std::vector<Part>& parts, const QString& file, const std::atomic<bool>& stop);

} // namespace PdfBinder

} // namespace tessa::qt
