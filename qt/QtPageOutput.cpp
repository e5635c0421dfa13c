#include "qt/QtPageOutput.h"

#include "common/AtomicFile.h"
#include "qt/QtPage.h"
#include "qt/QtPathBytes.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>
#include <QWebEngineDownloadRequest>
#include <QWebEngineView>
#include <array>
#include <memory>
#include <utility>

namespace {

struct Format {
    const char* filter;
    const char* suffix;
};

constexpr std::array kFormats{
    Format{"Web page, complete (*.html *.htm)", "html"},
    Format{"Web page, single file (*.mhtml)", "mhtml"},
    Format{"PDF document (*.pdf)", "pdf"},
};

constexpr qsizetype kLongestName = 80;

bool Write(const QString& path, const QByteArray& bytes) {
    const std::string_view all(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return !all.empty() && WriteWholeFile(PathBytes(path), all) == Outcome::Done;
}

void TellNotWritten(const QString& path, QWidget* parent) {
    auto* box = new QMessageBox(QMessageBox::Warning, QGuiApplication::applicationDisplayName(),
                                QStringLiteral("%1 could not be written.").arg(path), QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

// The dialog follows the chosen kind of file with the name's ending.
void FollowFormat(QFileDialog& dialog) {
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        for (const Format& format : kFormats) {
            if (filter == QLatin1String(format.filter)) dialog.setDefaultSuffix(QLatin1String(format.suffix));
        }
        const QFileInfo chosen(dialog.selectedFiles().value(0));
        if (!chosen.fileName().isEmpty()) dialog.selectFile(chosen.completeBaseName());
    });
}

} // namespace

QString QtPageOutput::FileNameFor(const QString& title) {
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

Outcome QtPageOutput::SaveAs(QtPage& page, QWidget* parent) {
    QFileDialog dialog(parent, QStringLiteral("Save As"),
                       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const Format& format : kFormats) filters << QLatin1String(format.filter);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(QLatin1String(kFormats.front().suffix));
    FollowFormat(dialog);
    dialog.selectFile(FileNameFor(page.title()));
    const QPointer<QtPage> alive(&page);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return Outcome::Done;
    if (!alive || alive->Ended()) return Outcome::Failed;
    Save(page, dialog.selectedFiles().constFirst(), parent);
    return Outcome::Done;
}

void QtPageOutput::Save(QtPage& page, const QString& path, QWidget* parent) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"pdf")
        WritePdf(page, path, QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()), parent);
    else if (suffix == u"mhtml" || suffix == u"mht")
        page.save(path, QWebEngineDownloadRequest::MimeHtmlSaveFormat);
    else
        page.save(path, QWebEngineDownloadRequest::CompleteHtmlSaveFormat);
}

// The file is written here and not by the engine, which does not survive that the page goes while it writes one.
void QtPageOutput::WritePdf(QtPage& page, const QString& path, const QPageLayout& layout, QWidget* parent) {
    page.Print(layout, [path, parent = QPointer(parent)](const QByteArray& pdf) {
        if (!Write(path, pdf) && parent && parent->isVisible()) TellNotWritten(path, parent);
    });
}

Outcome QtPageOutput::Print(QtPage& page, QWidget* parent) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageLayout(m_layout);
    printer->setDocName(page.title());
    QPrintDialog dialog(printer.get(), parent);
    dialog.setWindowTitle(QStringLiteral("Print"));
    const QPointer<QtPage> alive(&page);
    if (dialog.exec() != QDialog::Accepted) return Outcome::Done;
    if (!alive || alive->Ended()) return Outcome::Failed;
    // The engine writes PDF itself, with text that can be searched.
    if (printer->outputFormat() == QPrinter::PdfFormat) {
        WritePdf(page, printer->outputFileName(), printer->pageLayout(), parent);
        return Outcome::Done;
    }
    auto* view = QWebEngineView::forPage(&page);
    if (!view) return Outcome::Failed;
    // The printer must live until the engine is done with it.
    auto held = std::make_shared<QMetaObject::Connection>();
    *held = QObject::connect(view, &QWebEngineView::printFinished, view,
                             [printer, held](bool) { QObject::disconnect(*held); });
    view->print(printer.get());
    return Outcome::Done;
}

Outcome QtPageOutput::PageSetup(QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(m_layout);
    QPageSetupDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Page Setup"));
    if (dialog.exec() == QDialog::Accepted) m_layout = printer.pageLayout();
    return Outcome::Done;
}
