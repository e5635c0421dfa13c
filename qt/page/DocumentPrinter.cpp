#include "qt/page/DocumentPrinter.h"

#include <QLineEdit>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QProcess>
#include <QRadioButton>
#include <QStandardPaths>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {

// What the dialog has chosen for the printing system alone, Qt tells by a key that it does not name. It is the same in
// all versions.
constexpr auto kSystemsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

/// Qt's dialog. Of some versions, as 6.4, it takes no list of pages for one: that is seen to here.
class ListingDialog final : public QPrintDialog {
public:
    using QPrintDialog::QPrintDialog;

    void accept() override {
        auto* listed = findChild<QRadioButton*>(QStringLiteral("pagesRadioButton"));
        auto* all = findChild<QRadioButton*>(QStringLiteral("printAll"));
        const auto* list = findChild<QLineEdit*>(QStringLiteral("pagesLineEdit"));
        const bool lists = listed && all && list && listed->isChecked();
        const QString pages = lists ? QPageRanges::fromString(list->text()).toString() : QString();
        if (pages.isEmpty()) return QPrintDialog::accept();
        all->setChecked(true);
        QPrintDialog::accept();
        if (result() != Accepted) return listed->setChecked(true);
        const QStringList more{QStringLiteral("page-ranges"), pages};
        printer()->printEngine()->setProperty(kSystemsOptions, DocumentPrinter::ChosenFor(*printer()) + more);
    }
};

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

// Of an odd and an even page the dialog means the first and the second that are printed, when pages are left out
// before.
QString PageSetOf(const QPrinter& printer, const QString& chosen) {
    const bool counts = printer.printRange() == QPrinter::PageRange && printer.fromPage() % 2 == 0;
    if (!counts || (chosen != u"odd" && chosen != u"even")) return chosen;
    return chosen == u"odd" ? QStringLiteral("even") : QStringLiteral("odd");
}

// An option ends with a blank.
QString AsOneWord(const QString& value) {
    QString word;
    for (const QChar unit : value) {
        if (unit.isSpace() || QStringLiteral("\\'\"{}[]").contains(unit)) word += u'\\';
        word += unit;
    }
    return word;
}

} // namespace

bool DocumentPrinter::IsThere() { return !QStandardPaths::findExecutable(QStringLiteral("lp")).isEmpty(); }

QPageRanges DocumentPrinter::Some(const QPrinter& printer) {
    return printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges();
}

bool DocumentPrinter::Ask(QPrinter& printer, QWidget* parent) {
    ListingDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Print"));
    return dialog.exec() == QDialog::Accepted;
}

QStringList DocumentPrinter::ChosenFor(const QPrinter& printer) {
    return printer.printEngine()->property(kSystemsOptions).toStringList();
}

QStringList DocumentPrinter::Arguments(const QPrinter& printer, const QStringList& chosen, const QString& file) {
    QStringList all;
    const auto add = [&all](const QString& option, const QString& value) {
        if (!value.isEmpty()) all << QStringLiteral("-o") << option + u'=' + AsOneWord(value);
    };
    if (!printer.printerName().isEmpty()) all << QStringLiteral("-d") << printer.printerName();
    if (!printer.docName().isEmpty()) all << QStringLiteral("-t") << printer.docName();
    all << QStringLiteral("-n") << QString::number(printer.copyCount());
    add(QStringLiteral("collate"), printer.collateCopies() ? QStringLiteral("true") : QStringLiteral("false"));
    add(QStringLiteral("page-ranges"), Some(printer).toString());
    add(QStringLiteral("sides"), SidesOf(printer));
    add(QStringLiteral("media"), printer.pageLayout().pageSize().key());
    if (printer.colorMode() == QPrinter::GrayScale)
        add(QStringLiteral("print-color-mode"), QStringLiteral("monochrome"));
    if (printer.pageOrder() == QPrinter::LastPageFirst) add(QStringLiteral("outputorder"), QStringLiteral("reverse"));
    for (qsizetype at = 0; at + 1 < chosen.size(); at += 2) {
        const bool pageSet = chosen[at] == u"page-set";
        add(chosen[at], pageSet ? PageSetOf(printer, chosen[at + 1]) : chosen[at + 1]);
    }
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
    // What it says would have nowhere to go once the program has ended, and end it as well.
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(QStringLiteral("lp"), Arguments(printer, ChosenFor(printer), file));
}

} // namespace tessa::qt
