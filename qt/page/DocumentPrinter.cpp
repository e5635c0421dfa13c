#include "qt/page/DocumentPrinter.h"

#include <QPageRanges>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {

QString SidesOf(const QPrinter& printer) {
    switch (printer.duplex()) {
    case QPrinter::DuplexNone:
        return QStringLiteral("one-sided");
    case QPrinter::DuplexLongSide:
        return QStringLiteral("two-sided-long-edge");
    case QPrinter::DuplexShortSide:
        return QStringLiteral("two-sided-short-edge");
    case QPrinter::DuplexAuto:
        break;
    }
    return {};
}

QString PagesOf(const QPrinter& printer) {
    if (printer.printRange() != QPrinter::PageRange) return {};
    if (!printer.pageRanges().isEmpty()) return printer.pageRanges().toString();
    return printer.fromPage() > 0 ? QStringLiteral("%1-%2").arg(printer.fromPage()).arg(printer.toPage()) : QString();
}

} // namespace

bool DocumentPrinter::IsThere() { return !QStandardPaths::findExecutable(QStringLiteral("lp")).isEmpty(); }

QStringList DocumentPrinter::Arguments(const QPrinter& printer, const QString& file) {
    QStringList all;
    const auto add = [&all](const QString& option, const QString& value) {
        if (!value.isEmpty()) all << QStringLiteral("-o") << option + u'=' + value;
    };
    if (!printer.printerName().isEmpty()) all << QStringLiteral("-d") << printer.printerName();
    if (!printer.docName().isEmpty()) all << QStringLiteral("-t") << printer.docName();
    all << QStringLiteral("-n") << QString::number(printer.copyCount());
    add(QStringLiteral("collate"), printer.collateCopies() ? QStringLiteral("true") : QStringLiteral("false"));
    add(QStringLiteral("page-ranges"), PagesOf(printer));
    add(QStringLiteral("sides"), SidesOf(printer));
    add(QStringLiteral("media"), printer.pageLayout().pageSize().key());
    if (printer.colorMode() == QPrinter::GrayScale)
        add(QStringLiteral("print-color-mode"), QStringLiteral("monochrome"));
    all << QStringLiteral("-o") << QStringLiteral("fit-to-page") << QStringLiteral("--") << file;
    return all;
}

void DocumentPrinter::Print(const QPrinter& printer, const QString& file, std::function<void(bool taken)> told) {
    auto* process = new QProcess;
    const auto once = [process, told = std::make_shared<std::function<void(bool)>>(std::move(told))](bool taken) {
        if (const auto tell = std::exchange(*told, {})) tell(taken);
        process->deleteLater();
    };
    QObject::connect(process, &QProcess::finished, process, [once](int code, QProcess::ExitStatus status) {
        once(status == QProcess::NormalExit && code == 0);
    });
    QObject::connect(process, &QProcess::errorOccurred, process, [once](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) once(false);
    });
    process->setStandardInputFile(QProcess::nullDevice());
    process->start(QStringLiteral("lp"), Arguments(printer, file));
}

} // namespace tessa::qt
