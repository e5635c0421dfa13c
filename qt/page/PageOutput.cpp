#include "qt/page/PageOutput.h"

#include "base/PlainText.h"
#include "base/os/AtomicFile.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"
#include "qt/page/DocumentKind.h"
#include "qt/page/DocumentPrinter.h"
#include "qt/page/StartPageScheme.h"
#include "qt/page/WebPage.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <chrono>
#include <optional>
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
constexpr std::chrono::seconds kTypePatience{1}, kUnseenPatience{20};
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

// The engine itself has no word for it. Asked in a world of our own, the page cannot answer for it. No click and no key
// comes in between.
DocumentKind PageOutput::KindOf(WebPage& page) {
    QEventLoop wait;
    const auto type = std::make_shared<std::optional<QString>>();
    page.runJavaScript(AskType(), QWebEngineScript::ApplicationWorld,
                       [type, loop = QPointer(&wait)](const QVariant& answer) {
                           *type = answer.toString();
                           if (loop) loop->quit();
                       });
    QTimer::singleShot(kTypePatience, &wait, &QEventLoop::quit);
    const QUrl address = page.ShownAddress();
    if (!*type) wait.exec(QEventLoop::ExcludeUserInputEvents);
    return DocumentKind::Of(type->value_or(QString()), address);
}

// Behind a dialog a page may have gone on to something else.
bool PageOutput::IsStill(WebPage& page, const DocumentKind& kind, const QUrl& address) {
    const bool sameAddress = page.ShownAddress() == address;
    const bool isWebPage = KindOf(page).IsWebPage; // the page may be gone afterwards
    return isWebPage == kind.IsWebPage && (isWebPage || sameAddress);
}

Outcome PageOutput::SaveAs(WebPage& page, QWidget* parent) {
    const QPointer<WebPage> alive(&page);
    const DocumentKind kind = KindOf(page);
    if (!alive || alive->Ended()) return Outcome::Failed;
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
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return Outcome::Done;
    if (!alive || alive->Ended()) return Outcome::Failed;
    const bool still = IsStill(page, kind, address);
    if (!alive || alive->Ended()) return Outcome::Failed;
    if (!still) {
        TellTrouble(QStringLiteral("The page has changed meanwhile. Nothing was saved."), parent);
        return Outcome::Done;
    }
    Save(page, kind, dialog.selectedFiles().constFirst(), parent);
    return Outcome::Done;
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
void PageOutput::WritePdf(WebPage& page, const QString& path, const QPageLayout& layout, QWidget* parent) {
    Say(QStringLiteral("Saving %1").arg(ShownName(path)));
    page.Print(layout, [path, told = Ending(path, parent)](const QByteArray& pdf) { told(Write(path, pdf)); });
}

std::function<void(bool)> PageOutput::Ending(const QString& path, QWidget* parent) const {
    return [this, path, parent = QPointer(parent)](bool written) {
        if (!parent || !parent->isVisible()) return;
        if (!written) return TellNotWritten(path, parent);
        Say(QStringLiteral("%1 has been saved.").arg(ShownName(path)));
    };
}

Outcome PageOutput::Print(WebPage& page, QWidget* parent) {
    const QPointer<WebPage> alive(&page);
    const DocumentKind kind = KindOf(page);
    if (!alive || alive->Ended()) return Outcome::Failed;
    const QUrl address = page.ShownAddress();
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageLayout(m_layout);
    printer->setDocName(page.title());
    QPrintDialog dialog(printer.get(), parent);
    dialog.setWindowTitle(QStringLiteral("Print"));
    if (dialog.exec() != QDialog::Accepted) return Outcome::Done;
    if (!alive || alive->Ended()) return Outcome::Failed;
    const bool still = IsStill(page, kind, address);
    if (!alive || alive->Ended()) return Outcome::Failed;
    if (!still) {
        TellTrouble(QStringLiteral("The page has changed meanwhile. Nothing was printed."), parent);
        return Outcome::Done;
    }
    kind.IsPdf ? PrintDocument(page, printer, parent) : PrintPage(page, printer, parent);
    return Outcome::Done;
}

void PageOutput::PrintPage(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent) {
    // The engine writes PDF itself, with text that can be searched.
    if (printer->outputFormat() == QPrinter::PdfFormat)
        return WritePdf(page, printer->outputFileName(), printer->pageLayout(), parent);
    auto* view = QWebEngineView::forPage(&page);
    if (!view) return;
    // The printer must live until the engine is done with it.
    auto held = std::make_shared<QMetaObject::Connection>();
    *held = QObject::connect(view, &QWebEngineView::printFinished, view,
                             [printer, held](bool) { QObject::disconnect(*held); });
    view->print(printer.get());
}

// The engine would print its viewer, with the buttons.
void PageOutput::PrintDocument(WebPage& page, const std::shared_ptr<QPrinter>& printer, QWidget* parent) {
    const bool toFile = printer->outputFormat() == QPrinter::PdfFormat;
    if (toFile && printer->printRange() != QPrinter::AllPages)
        return TellTrouble(QStringLiteral("Some pages of a PDF document can be printed, but not written to a file of "
                                          "their own. Nothing was written."),
                           parent);
    Fetch(page, [printer, toFile, written = Ending(printer->outputFileName(), parent),
                 parent = QPointer(parent)](const FetchedFile& file) {
        const auto tell = [parent](const QString& words) {
            if (parent && parent->isVisible()) TellTrouble(words, parent);
        };
        if (!file) return tell(QStringLiteral("The document cannot be had any more. Nothing was printed."));
        const QString target = printer->outputFileName();
        if (toFile) return written(Write(target, WholeFile(PathIn(file))));
        // The file stays for as long as the printing system reads it.
        DocumentPrinter::Print(*printer, PathIn(file), [tell, file](bool taken) {
            if (!taken) tell(QStringLiteral("The printer did not take the document. Nothing was printed."));
        });
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

bool PageOutput::FetchPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched) {
    const QPointer<WebPage> alive(&page);
    if (!KindOf(page).IsPdf || !alive || alive->Ended()) return false;
    FetchShownPdf(page, fetched);
    return true;
}

void PageOutput::FetchShownPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& fetched) {
    Fetch(page, [fetched](const FetchedFile& file) { fetched(file ? WholeFile(PathIn(file)) : QByteArray()); });
}

// A page that ends meanwhile answers with nothing, and is not touched any more.
void PageOutput::BringAsPdf(WebPage& page, const std::function<void(const QByteArray& pdf)>& brought) {
    const auto open = std::make_shared<bool>(true);
    const auto bring = [this, &page, open, brought](const QString& type) {
        if (!std::exchange(*open, false)) return;
        const bool isPdf = DocumentKind::Of(type, page.ShownAddress()).IsPdf;
        isPdf ? FetchShownPdf(page, brought) : page.Print(m_layout, brought);
    };
    page.Ask(AskType(), [bring, open, brought](const QVariant& type) {
        if (type.isValid()) return bring(type.toString());
        if (std::exchange(*open, false)) brought({});
    });
    QTimer::singleShot(kUnseenPatience, &page, [bring] { bring({}); });
}

} // namespace tessa::qt
