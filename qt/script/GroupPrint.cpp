#include "qt/script/GroupPrint.h"

#include "qt/page/DocumentPrinter.h"
#include "qt/page/PageOutput.h"

#include <QPrinter>
#include <QTemporaryDir>
#include <memory>

namespace tessa::qt {

void GroupPrint::Print(const GroupOutput::Pages& pages, const GroupOutput::Told& told) {
    const GroupOutput::Written& printed = told.written;
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageLayout(m_pages.Layout());
    printer->setDocName(QStringLiteral("TessaView"));
    if (!DocumentPrinter::Ask(*printer, &m_window)) return;
    const bool toFile = printer->outputFormat() == QPrinter::PdfFormat;
    if (toFile && printer->printRange() != QPrinter::AllPages)
        return printed({QStringLiteral("Some of the pages can be printed, but not written to a file of their own. "
                                       "Nothing was written."),
                        {}});
    if (toFile) return m_output.Pdf(pages, printer->outputFileName(), told);
    // The file stays for as long as the printing system reads it.
    const auto folder = std::make_shared<QTemporaryDir>();
    const QString file = folder->filePath(QStringLiteral("pages.pdf"));
    const auto print = [printer, folder, file, printed](const GroupOutput::Result& result) {
        if (!result.refusal.isEmpty()) return printed(result);
        DocumentPrinter::Print(*printer, file, [folder, printed, left = result.left](bool taken) {
            const QString refusal = QStringLiteral("The printer did not take the document. Nothing was printed.");
            printed({taken ? QString() : refusal, left});
        });
    };
    m_output.Pdf(pages, file, {print, told.progress, told.stop});
}

} // namespace tessa::qt
