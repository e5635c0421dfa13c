#pragma once
#include "base/ResumeNext.h"
#include "base/Signal.h"
#include "qt/page/PageDocuments.h"

#include <QPageLayout>
#include <functional>
#include <memory>

class QByteArray;
class QPrinter;
class QString;
class QTemporaryDir;
class QUrl;
class QWidget;

namespace tessa::qt {

struct DocumentKind;
class WebPage;

/// Saving and printing of pages. What came as a document, and is no web page, is saved as the bytes that it is. A PDF
/// is printed as it is, too. Keeps the page layout that the user has chosen.
class PageOutput {
public:
    /// Asks where to and saves a complete page with its files, one MHTML file, or a PDF. A document is saved as it
    /// came. The page must live until the user has answered, else nothing is saved.
    Outcome SaveAs(WebPage& page, QWidget* parent);
    /// Asks for a printer, or a PDF file where there is none, and prints.
    Outcome Print(WebPage& page, QWidget* parent);
    /// Asks for paper, orientation and margins.
    Outcome PageSetup(QWidget* parent);

    /// Brings the PDF that the page shows, later; nothing when it cannot be had any more. False, without a word, when
    /// the page shows something else. Events may run before it returns.
    bool FetchPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched);
    /// Brings the page as a PDF, later: the one that it shows, or as it would be printed; nothing when that fails.
    /// Nobody looks at the page, so it gets time to say what it is.
    void BringAsPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& brought);
    /// What becomes files by way of downloads.
    [[nodiscard]] PageDocuments& Documents() { return m_documents; }

    /// Says that a file is being written, or has been.
    Signal<void(const QString& words)> Say;

    [[nodiscard]] const QPageLayout& Layout() const { return m_layout; }

    /// A file name that suggests itself for a page's title: without what file systems refuse.
    [[nodiscard]] static QString FileNameFor(const QString& title);

private:
    [[nodiscard]] static DocumentKind KindOf(WebPage& page);
    [[nodiscard]] static bool IsStill(WebPage& page, const DocumentKind& kind, const QUrl& address);
    [[nodiscard]] static QByteArray PreviewIn(const WebPage& page);
    void Save(WebPage& page, const DocumentKind& kind, const QString& path, QWidget* parent);
    void PrintDocument(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent);
    void PrintPage(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent);
    /// A folder with the file in it, which goes with the last who needs it.
    using FetchedFile = std::shared_ptr<QTemporaryDir>;
    void Fetch(WebPage& page, const std::function<void(const FetchedFile& file)>& fetched);
    void WritePdf(WebPage& page, const QString& path, const QPageLayout& layout, QWidget* parent);
    void FetchShownPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched);
    /// Tells how the writing of that file has ended, unless the window has gone meanwhile.
    [[nodiscard]] std::function<void(bool written)> Ending(const QString& path, QWidget* parent) const;

    PageDocuments m_documents;
    QPageLayout m_layout{QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                         QPageLayout::Millimeter};
};

} // namespace tessa::qt
