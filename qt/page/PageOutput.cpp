#include "qt/page/PageOutput.h"

#include "base/PlainText.h"
#include "base/os/AtomicFile.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"
#include "qt/page/DocumentPrinter.h"
#include "qt/page/StartPageScheme.h"
#include "qt/page/WebPage.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <chrono>
#include <utility>
#include <vector>

namespace tessa::qt {

namespace {

struct Format {
    QString filter;
    QString suffix;
};

std::vector<Format> FormatsFor(const DocumentKind& kind) {
    const Format pdf{QStringLiteral("PDF document (*.pdf)"), QStringLiteral("pdf")};
    if (kind.IsWebPage)
        return {{QStringLiteral("Web page, complete (*.html *.htm)"), QStringLiteral("html")},
                {QStringLiteral("Web page, single file (*.mhtml)"), QStringLiteral("mhtml")},
                pdf};
    const Format own{kind.Filter(), kind.Suffix};
    return kind.IsPdf ? std::vector{own} : std::vector{own, pdf};
}

// A page that is busy with itself does not say what it is.
constexpr std::chrono::seconds kTypePatience{1};
QString AskType() { return QStringLiteral("document.contentType"); }

constexpr qsizetype kLongestName = 80;

bool Write(const QString& path, const QByteArray& bytes) {
    const std::string_view all(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return !all.empty() && WriteWholeFile(PathBytes(path), all) == Outcome::Done;
}

void TellTrouble(const QString& words, QWidget* parent) {
    auto* box = new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(), words, QMessageBox::Ok,
                                parent);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

QString ShownName(const QString& path) { return ToQt(PlainLine(FromQt(QFileInfo(path).fileName()), kLongestName)); }

void TellNotWritten(const QString& path, QWidget* parent) {
    TellTrouble(QStringLiteral("%1 could not be written.").arg(path), parent);
}

QString PathIn(const std::shared_ptr<QTemporaryDir>& folder) {
    return folder->filePath(QStringLiteral("document.pdf"));
}

QByteArray WholeFile(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// The dialog follows the chosen kind of file with the name's ending.
void FollowFormat(QFileDialog& dialog, const std::vector<Format>& formats) {
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog, formats](const QString& filter) {
        for (const Format& format : formats) {
            if (filter == format.filter) dialog.setDefaultSuffix(format.suffix);
        }
        const QFileInfo chosen(dialog.selectedFiles().value(0));
        if (!chosen.fileName().isEmpty()) dialog.selectFile(chosen.completeBaseName());
    });
}

} // namespace

QString PageOutput::FileNameFor(const QString& title) {
    QString name;
    for (const QChar unit : title.simplified()) {
        const bool refused = QStringLiteral("/\\:*?\"<>|").contains(unit) || unit.category() == QChar::Other_Format ||
                             unit.category() == QChar::Other_Control;
        name += refused ? QLatin1Char(' ') : unit;
    }
    name = name.simplified().left(kLongestName).trimmed();
    while (name.startsWith(u'.')) name.remove(0, 1);
    return name.isEmpty() ? QStringLiteral("page") : name;
}

// What the program itself shows as a PDF; the engine saves nothing of ours.
QByteArray PageOutput::PreviewIn(const WebPage& page) {
    const QUrl address = page.ShownAddress();
    const auto* handler = page.profile()->urlSchemeHandler(StartPageScheme::Scheme());
    if (!handler || !StartPageScheme::IsOwn(address)) return {};
    return static_cast<const StartPageScheme*>(handler)->PreviewAt(address.path());
}

// The engine itself has no word for it. Asked in a world of our own, the page cannot answer for it.
void PageOutput::AskKind(WebPage& page, std::chrono::milliseconds patience, const Known& known) {
    // What it holds goes with the answer, not with the clock.
    const auto listener = std::make_shared<Known>(known);
    const auto tell = [&page, whole = page.Whole(), listener](const QString& type, bool answered) {
        const Known once = std::exchange(*listener, {});
        if (!once) return;
        if (whole.expired()) return once(nullptr, {}, answered);
        once(&page, DocumentKind::Of(type, page.ShownAddress()), answered);
    };
    page.Ask(AskType(), [tell](const QVariant& type) { tell(type.toString(), true); });
    QTimer::singleShot(patience, &page, [tell] { tell({}, false); });
}

// Queued: the engine is in the middle of telling, and a dialog takes its time. Its user may go on until it is there.
void PageOutput::BeginDialog(WebPage& page, QWidget* parent,
                             const std::function<void(WebPage&, const DocumentKind&, QWidget*)>& show) {
    if (m_dialogOpen) return;
    const auto open = [this, show, alive = QPointer(&page), parent = QPointer(parent),
                       wish = ++m_wishes](const DocumentKind& kind) {
        if (m_dialogOpen || wish != m_wishes || !alive || alive->Ended() || !parent) return;
        m_dialogOpen = true;
        show(*alive, kind, parent);
        m_dialogOpen = false;
    };
    AskKind(page, kTypePatience, [this, open](const WebPage* asked, const DocumentKind& kind, bool) {
        if (!asked) return;
        QMetaObject::invokeMethod(
            &m_documents, [open, kind] { open(kind); }, Qt::QueuedConnection);
    });
}

// Behind a dialog a page may have gone on to something else. A tab that closes now does not take back what was wanted.
void PageOutput::WhenStill(WebPage& page, const Shown& before, QWidget* parent, const QString& otherwise,
                           const std::function<void(WebPage&, QWidget*)>& then) {
    AskKind(page, kTypePatience,
            [before, then, otherwise, parent = QPointer(parent)](WebPage* now, const DocumentKind& kind, bool) {
                if (!now || !parent) return;
                const bool still = kind.IsWebPage == before.kind.IsWebPage &&
                                   (kind.IsWebPage || now->ShownAddress() == before.address);
                still ? then(*now, parent) : TellTrouble(otherwise, parent);
            });
}

void PageOutput::SaveAs(WebPage& page, QWidget* parent) {
    BeginDialog(page, parent,
                [this](WebPage& asked, const DocumentKind& kind, QWidget* window) { AskWhere(asked, kind, window); });
}

void PageOutput::AskWhere(WebPage& page, const DocumentKind& kind, QWidget* parent) {
    const QPointer<WebPage> alive(&page);
    const QUrl address = page.ShownAddress();
    const std::vector<Format> formats = FormatsFor(kind);
    QFileDialog dialog(parent, QStringLiteral("Save As"),
                       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const Format& format : formats) filters << format.filter;
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(formats.front().suffix);
    FollowFormat(dialog, formats);
    dialog.selectFile(kind.IsWebPage ? FileNameFor(page.title()) : kind.Name);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    if (!alive || alive->Ended()) return;
    const QString path = dialog.selectedFiles().constFirst();
    WhenStill(*alive, {kind, address}, parent, QStringLiteral("The page has changed meanwhile. Nothing was saved."),
              [this, kind, path](WebPage& now, QWidget* window) { Save(now, kind, path, window); });
}

void PageOutput::Save(WebPage& page, const DocumentKind& kind, const QString& path, QWidget* parent) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"pdf" && !kind.IsPdf)
        WritePdf(page, path, QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()), parent);
    else if (const QByteArray preview = PreviewIn(page); !preview.isEmpty())
        Ending(path, parent)(Write(path, preview));
    else if (!kind.IsWebPage)
        m_documents.Save(page, path);
    else if (suffix == u"mhtml" || suffix == u"mht")
        page.save(path, QWebEngineDownloadRequest::MimeHtmlSaveFormat);
    else
        page.save(path, QWebEngineDownloadRequest::CompleteHtmlSaveFormat);
}

// The file is written here: the engine does not survive that the page goes while it writes one.
void PageOutput::WritePdf(WebPage& page, const QString& path, const QPageLayout& layout, QWidget* parent,
                          const QPageRanges& ranges) {
    Say(QStringLiteral("Saving %1").arg(ShownName(path)));
    const auto done = [path, told = Ending(path, parent), parent = QPointer(parent)](const PrintedPage& printed) {
        if (printed.answered) return told(Write(path, printed.pdf));
        if (parent && parent->isVisible())
            TellTrouble(QStringLiteral("The page does not answer. %1 was not written.").arg(path), parent);
    };
    page.Print(layout, kPrintPatience, done, ranges);
}

std::function<void(bool)> PageOutput::Ending(const QString& path, QWidget* parent) const {
    return [this, path, parent = QPointer(parent)](bool written) {
        if (!parent || !parent->isVisible()) return;
        if (!written) return TellNotWritten(path, parent);
        Say(QStringLiteral("%1 has been saved.").arg(ShownName(path)));
    };
}

std::function<void(bool)> PageOutput::Taken(const QString& what, QWidget* parent) const {
    return [this, what, parent = QPointer(parent)](bool taken) {
        if (!parent || !parent->isVisible()) return;
        if (taken) return Say(QStringLiteral("The printer has taken the %1.").arg(what));
        TellTrouble(QStringLiteral("The printer did not take the %1. Nothing was printed.").arg(what), parent);
    };
}

void PageOutput::Print(WebPage& page, QWidget* parent) {
    BeginDialog(page, parent, [this](WebPage& asked, const DocumentKind& kind, QWidget* window) {
        AskForPrinter(asked, kind, window);
    });
}

void PageOutput::AskForPrinter(WebPage& page, const DocumentKind& kind, QWidget* parent) {
    const QPointer<WebPage> alive(&page);
    const QUrl address = page.ShownAddress();
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageLayout(m_layout);
    printer->setDocName(page.title());
    if (!DocumentPrinter::Ask(*printer, parent)) return;
    if (!alive || alive->Ended()) return;
    WhenStill(*alive, {kind, address}, parent, QStringLiteral("The page has changed meanwhile. Nothing was printed."),
              [this, isPdf = kind.IsPdf, printer](WebPage& now, QWidget* window) {
                  isPdf ? PrintDocument(now, printer, window) : PrintPage(now, printer, window);
              });
}

void PageOutput::PrintPage(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent) {
    // The engine writes PDF itself, with text that can be searched.
    if (printer->outputFormat() == QPrinter::PdfFormat)
        return WritePdf(page, printer->outputFileName(), printer->pageLayout(), parent,
                        DocumentPrinter::Some(*printer));
    if (DocumentPrinter::IsThere()) return PrintPaper(page, printer, parent);
    auto* view = QWebEngineView::forPage(&page);
    if (!view) return;
    // The printer must live until the engine is done with it.
    auto held = std::make_shared<QMetaObject::Connection>();
    *held = QObject::connect(view, &QWebEngineView::printFinished, view,
                             [printer, held](bool) { QObject::disconnect(*held); });
    view->print(printer.get());
}

// Not by the engine itself, which would do it for the view and not bear that its tab closes.
void PageOutput::PrintPaper(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent) {
    const auto tell = [parent = QPointer(parent)](const QString& words) {
        if (parent && parent->isVisible()) TellTrouble(words, parent);
    };
    page.Print(printer->pageLayout(), kPrintPatience,
               [printer, tell, taken = Taken(QStringLiteral("page"), parent)](const PrintedPage& printed) {
                   if (!printed.answered) return tell(QStringLiteral("The page does not answer. Nothing was printed."));
                   // The file stays for as long as the printing system reads it.
                   const auto folder = std::make_shared<QTemporaryDir>();
                   if (!folder->isValid() || !Write(PathIn(folder), printed.pdf))
                       return tell(QStringLiteral("The page could not be printed."));
                   DocumentPrinter::Print(*printer, PathIn(folder), [taken, folder](bool done) { taken(done); });
               });
}

// The engine would print its viewer, with the buttons.
void PageOutput::PrintDocument(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent) {
    const bool toFile = printer->outputFormat() == QPrinter::PdfFormat;
    if (toFile && printer->printRange() != QPrinter::AllPages)
        return TellTrouble(QStringLiteral("Some pages of a PDF document can be printed, but not written to a file of "
                                          "their own. Nothing was written."),
                           parent);
    Fetch(page,
          [printer, toFile, written = Ending(printer->outputFileName(), parent),
           taken = Taken(QStringLiteral("document"), parent), parent = QPointer(parent)](const FetchedFile& file) {
              const auto tell = [parent](const QString& words) {
                  if (parent && parent->isVisible()) TellTrouble(words, parent);
              };
              if (!file) return tell(QStringLiteral("The document cannot be had any more. Nothing was printed."));
              const QString target = printer->outputFileName();
              if (toFile) return written(Write(target, WholeFile(PathIn(file))));
              // The file stays for as long as the printing system reads it.
              DocumentPrinter::Print(*printer, PathIn(file), [taken, file](bool done) { taken(done); });
          });
}

Outcome PageOutput::PageSetup(QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(m_layout);
    QPageSetupDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Page Setup"));
    if (dialog.exec() == QDialog::Accepted) m_layout = printer.pageLayout();
    return Outcome::Done;
}

void PageOutput::Fetch(WebPage& page, const std::function<void(const FetchedFile& file)>& fetched) {
    const FetchedFile folder = std::make_shared<QTemporaryDir>();
    if (!folder->isValid()) return fetched(nullptr);
    if (const QByteArray preview = PreviewIn(page); !preview.isEmpty())
        return fetched(Write(PathIn(folder), preview) ? folder : nullptr);
    m_documents.Save(page, PathIn(folder), [folder, fetched](bool came) { fetched(came ? folder : nullptr); });
}

void PageOutput::FetchPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched,
                          const std::function<void()>& otherwise) {
    AskKind(page, kTypePatience, [this, fetched, otherwise](WebPage* asked, const DocumentKind& kind, bool) {
        if (!asked) return;
        kind.IsPdf ? FetchShownPdf(*asked, fetched) : otherwise();
    });
}

void PageOutput::FetchShownPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched) {
    Fetch(page, [fetched](const FetchedFile& file) { fetched(file ? WholeFile(PathIn(file)) : QByteArray()); });
}

void PageOutput::BringAsPdf(WebPage& page, std::chrono::milliseconds patience,
                            const std::function<void(const PrintedPage& printed)>& brought) {
    const QDeadlineTimer deadline(patience);
    // What is not begun need not be ended: the engine cannot be told to stop printing.
    AskKind(page, patience, [this, deadline, brought](WebPage* asked, const DocumentKind& kind, bool answered) {
        if (!asked || !answered) return brought({.answered = answered});
        if (kind.IsPdf) return FetchShownPdf(*asked, [brought](const QByteArray& pdf) { brought({pdf}); });
        asked->Print(m_layout, std::chrono::milliseconds(deadline.remainingTime()), brought);
    });
}

} // namespace tessa::qt
