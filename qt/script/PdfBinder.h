#pragma once
#include <QString>
#include <QStringList>
#include <atomic>
#include <functional>
#include <vector>

namespace tessa::qt {

/// Binds several PDF files to one, with an outline entry for each. The foot of each page has title, address and page
/// number.
namespace PdfBinder {

struct Part {
    QString file;
    QString title, address;
};

struct Bound {
    QString refusal{};  ///< why the file was not written, a sentence; empty when it was
    QStringList left{}; ///< parts that are no PDF
};

/// Whoever wants it, while it is done.
struct Wish {
    const std::atomic<bool>& stop; ///< nobody wants it any more
    /// Hears how far it is, in the thread in which it is done; each number is higher than the one before.
    std::function<void(int percent)> progress{};
};

/// Writes the file, which is replaced whole, or stays as it is when that fails or `stop` comes. The files are read page
/// by page, so memory does not grow with them. In any thread.
[[nodiscard]] Bound Bind(const std::vector<Part>& parts, const QString& file, const Wish& wish);

} // namespace PdfBinder

} // namespace tessa::qt
