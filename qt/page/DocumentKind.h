#pragma once
#include <QString>

class QUrl;

namespace tessa::qt {

/// What a page shows: a web page, which is more than one file, or a document. That came as it is: a PDF, a picture, a
/// text.
struct DocumentKind {
    bool IsWebPage = true;
    bool IsPdf = false;
    QString Words;  ///< as in "PDF document"; of documents only, like what follows
    QString Suffix; ///< the ending that its file should have, without a dot; empty when nobody knows
    QString Name;   ///< a file name that suggests itself, with its ending

    /// What a file dialog shows for it, as in "PDF document (*.pdf)".
    [[nodiscard]] QString Filter() const;

    /// `type` is the document's MIME type as the engine has it, empty when it did not say.
    [[nodiscard]] static DocumentKind Of(const QString& type, const QUrl& address);
};

} // namespace tessa::qt
