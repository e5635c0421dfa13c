#pragma once
#include <QString>
#include <QStringList>
#include <vector>

namespace tessa::qt {

/// Binds several PDF files to one, with an outline entry for each, and title, address and page number in the foot.
namespace PdfBinder {

struct Part {
    QString file;
    QString title, address;
};

/// Writes the file, which is replaced whole. Empty when it was written; else why not, a sentence. Parts that are no PDF
/// are left out and named in `left`. The files are read page by page, so memory does not grow with them.
[[nodiscard]] QString Bind(const std::vector<Part>& parts, const QString& file, QStringList& left);

} // namespace PdfBinder

} // namespace tessa::qt
