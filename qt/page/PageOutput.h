#pragma once
#include "base/ResumeNext.h"
#include "base/Signal.h"
#include "qt/page/DocumentKind.h"
#include "qt/page/PageDocuments.h"

#include <QPageLayout>
#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>

class QByteArray;
class QPrinter;
class QString;
class QTemporaryDir;
class QWidget;

namespace tessa::qt {

class WebPage;
struct PrintedPage;

/// Saving and printing of pages. What came as a document, and is no web page, is saved as the bytes that it is. A PDF
/// is printed as it is, too. Keeps the page layout that the user has chosen.
class PageOutput {
public:
    /// How long a page gets to be printed. One that is busy with itself would take for ever.
    static constexpr std::chrono::seconds kPrintPatience{120};

    /// Asks where to and saves a complete page with its files, one MHTML file, or a PDF. A document is saved as it
    /// came. The page must live until the user has answered, else nothing is saved. This dialog and the next one come
    /// once the page has said what it is; of several wishes until then the last one counts.
    void SaveAs(WebPage& page, QWidget* parent);
    /// Asks for a printer, or a PDF file where there is none, and prints.
    void Print(WebPage& page, QWidget* parent);
    /// Asks for paper, orientation and margins.
    Outcome PageSetup(QWidget* parent);

    /// Brings the PDF that the page shows, later; nothing when it cannot be had any more. Calls `otherwise` instead
    /// when the page shows something else.
    void FetchPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched,
                  const std::function<void()>& otherwise);
    /// Brings the page as a PDF, later: the one that it shows, or as it would be printed. It has failed to answer when
    /// that takes longer. Nobody looks at the page, so it gets as much time to say what it is.
    void BringAsPdf(WebPage& page, std::chrono::milliseconds patience,
                    const std::function<void(const PrintedPage& printed)>& brought);
    /// What becomes files by way of downloads.
    [[nodiscard]] PageDocuments& Documents() { return m_documents; }

    /// Says that a file is being written, or has been.
    Signal<void(const QString& words)> Say;

    [[nodiscard]] const QPageLayout& Layout() const { return m_layout; }

    /// A file name that suggests itself for a page's title: without what file systems refuse.
    [[nodiscard]] static QString FileNameFor(const QString& title);

private:
    /// What a page has shown.
    struct Shown {
        DocumentKind kind;
        QUrl address;
    };
    /// Hears what the page shows; no page when it has gone. One that has not answered is judged by its address.
    using Known = std::function<void(WebPage* page, const DocumentKind& kind, bool answered)>;

    static void AskKind(WebPage& page, std::chrono::milliseconds patience, const Known& known);
    void BeginDialog(WebPage& page, QWidget* parent,
                     const std::function<void(WebPage& page, const DocumentKind& kind, QWidget* parent)>& show);
    static void WhenStill(WebPage& page, const Shown& before, QWidget* parent, const QString& otherwise,
                          const std::function<void(WebPage& page, QWidget* parent)>& then);
    void AskWhere(WebPage& page, const DocumentKind& kind, QWidget* parent);
    void AskForPrinter(WebPage& page, const DocumentKind& kind, QWidget* parent);
    [[nodiscard]] static QByteArray PreviewIn(const WebPage& page);
    void Save(WebPage& page, const DocumentKind& kind, const QString& path, QWidget* parent);
    void PrintPaper(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent);
    void PrintDocument(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent);
    void PrintPage(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent);
    /// A folder with the file in it, which goes with the last who needs it.
    using FetchedFile = std::shared_ptr<QTemporaryDir>;
    void Fetch(WebPage& page, const std::function<void(const FetchedFile& file)>& fetched);
    void WritePdf(WebPage& page, const QString& path, const QPageLayout& layout, QWidget* parent,
                  const QPageRanges& ranges = {});
    void FetchShownPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched);
    /// Tells how the writing of that file has ended, unless the window has gone meanwhile.
    [[nodiscard]] std::function<void(bool written)> Ending(const QString& path, QWidget* parent) const;
    /// The same of whether the printer has it, a page or a document.
    [[nodiscard]] std::function<void(bool taken)> Taken(const QString& what, QWidget* parent) const;

    PageDocuments m_documents;
    int m_wishes = 0;          ///< for dialogs, which are counted
    bool m_dialogOpen = false; ///< one of them
    QPageLayout m_layout{QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                         QPageLayout::Millimeter};
};

} // namespace tessa::qt
