#include "qt/script/PdfBinder.h"

#include "qt/base/PathBytes.h"

#include <QFile>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <cstdio>
#include <exception>
#include <memory>
// What newer releases of the library want to be told.
#define POINTERHOLDER_TRANSITION 4
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <unistd.h>

namespace tessa::qt {

namespace {

constexpr double kPointsPerInch = 72;
constexpr int kFootDots = 144;     ///< an inch
constexpr double kFootFont = 7;    ///< points
constexpr double kFootMargin = 28; ///< points, at both sides and below

/// A part that is a PDF.
struct Opened {
    const PdfBinder::Part* part;
    std::unique_ptr<QPDF> pdf;
    std::vector<QPDFPageObjectHelper> pages;
};

struct Size {
    double width, height; ///< points
};

Size SizeOf(QPDFPageObjectHelper page) {
    const QPDFObjectHandle::Rectangle box = page.getMediaBox().getArrayAsRectangle();
    return {box.urx - box.llx, box.ury - box.lly};
}

std::vector<Opened> Open(const std::vector<PdfBinder::Part>& parts, QStringList& left) {
    std::vector<Opened> opened;
    for (const PdfBinder::Part& part : parts) {
        auto pdf = std::make_unique<QPDF>();
        try {
            pdf->setSuppressWarnings(true);
            pdf->processFile(PathBytes(part.file).c_str());
            auto pages = QPDFPageDocumentHelper(*pdf).getAllPages();
            opened.push_back({&part, std::move(pdf), std::move(pages)});
        } catch (const std::exception&) {
            left.append(part.title.isEmpty() ? part.address : part.title);
        }
    }
    return opened;
}

void DrawFoot(QPainter& painter, const Size& size, const PdfBinder::Part& part, const QString& number) {
    const double scale = kFootDots / kPointsPerInch;
    const QRectF line(kFootMargin * scale, (size.height - kFootMargin) * scale, (size.width - 2 * kFootMargin) * scale,
                      kFootFont * 2 * scale);
    QFont font;
    font.setPointSizeF(kFootFont);
    painter.setFont(font);
    const QFontMetricsF metrics(font, painter.device());
    const double room = line.width() - metrics.horizontalAdvance(number) - metrics.averageCharWidth() * 2;
    const QString words = part.title.isEmpty() ? part.address : part.title + QStringLiteral("  ") + part.address;
    painter.drawText(line, Qt::AlignLeft, metrics.elidedText(words, Qt::ElideMiddle, room));
    painter.drawText(line, Qt::AlignRight, number);
}

// One page of feet for each page, drawn by Qt: it has fonts for every script.
bool DrawFeet(const std::vector<Opened>& parts, std::size_t all, const QString& file) {
    QPdfWriter writer(file);
    writer.setResolution(kFootDots);
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    std::size_t number = 0;
    for (const Opened& part : parts) {
        for (const QPDFPageObjectHelper& page : part.pages) {
            const Size size = SizeOf(page);
            const QPageSize paper(QSizeF(size.width, size.height), QPageSize::Point, {}, QPageSize::ExactMatch);
            writer.setPageLayout(QPageLayout(paper, QPageLayout::Portrait, QMarginsF()));
            if (!painter.isActive() ? !painter.begin(&writer) : !writer.newPage()) return false;
            DrawFoot(painter, size, *part.part, QStringLiteral("%1/%2").arg(++number).arg(all));
        }
    }
    return painter.end();
}

QPDFObjectHandle TextObject(const QString& text) { return QPDFObjectHandle::newUnicodeString(text.toStdString()); }

/// The binding itself.
class Book {
public:
    Book() { m_pdf.emptyPDF(); }

    void Add(Opened& part, std::vector<QPDFPageObjectHelper>& feet) {
        const std::size_t first = m_count;
        for (QPDFPageObjectHelper& page : part.pages) {
            m_pdf.addPage(page.getObjectHandle(), false);
            QPDFPageObjectHelper added(m_pdf.getAllPages().back());
            PutFoot(added, feet.at(m_count++));
            if (m_count == first + 1) m_firsts.push_back({part.part, added.getObjectHandle()});
        }
    }

    void Write(const std::string& file) {
        WriteOutline();
        QPDFWriter writer(m_pdf, file.c_str());
        writer.setObjectStreamMode(qpdf_o_generate);
        writer.write();
    }

private:
    void PutFoot(QPDFPageObjectHelper& page, QPDFPageObjectHelper& foot) {
        const QPDFObjectHandle drawn = m_pdf.copyForeignObject(foot.getFormXObjectForPage());
        QPDFObjectHandle resources = page.getAttribute("/Resources", true);
        if (!resources.isDictionary()) {
            resources = QPDFObjectHandle::newDictionary();
            page.getObjectHandle().replaceKey("/Resources", resources);
        }
        int suffix = 1;
        QPDFObjectHandle known = resources.getKey("/XObject");
        if (known.isIndirect()) resources.replaceKey("/XObject", known.shallowCopy());
        resources.mergeResources(QPDFObjectHandle::parse("<< /XObject << >> >>"));
        const std::string name = resources.getUniqueResourceName("/Foot", suffix);
        resources.getKey("/XObject").replaceKey(name, drawn);
        const QPDFObjectHandle::Rectangle box = page.getMediaBox().getArrayAsRectangle();
        const std::string content = page.placeFormXObject(drawn, name, box, true, false, false);
        // Whatever the page does to the coordinates ends before the foot begins.
        page.addPageContents(QPDFObjectHandle::newStream(&m_pdf, "q\n"), true);
        page.addPageContents(QPDFObjectHandle::newStream(&m_pdf, "\nQ\n" + content), false);
    }

    void WriteOutline() {
        QPDFObjectHandle root = m_pdf.makeIndirectObject(QPDFObjectHandle::parse("<< /Type /Outlines >>"));
        std::vector<QPDFObjectHandle> entries;
        for (const First& each : m_firsts) {
            QPDFObjectHandle entry = m_pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
            entry.replaceKey("/Title", TextObject(each.part->title.isEmpty() ? each.part->address : each.part->title));
            entry.replaceKey("/Parent", root);
            entry.replaceKey("/Dest", QPDFObjectHandle::newArray({each.page, QPDFObjectHandle::newName("/Fit")}));
            entries.push_back(entry);
        }
        if (entries.empty()) return;
        for (std::size_t at = 1; at < entries.size(); ++at) {
            entries[at].replaceKey("/Prev", entries[at - 1]);
            entries[at - 1].replaceKey("/Next", entries[at]);
        }
        root.replaceKey("/First", entries.front());
        root.replaceKey("/Last", entries.back());
        root.replaceKey("/Count", QPDFObjectHandle::newInteger(static_cast<long long>(entries.size())));
        m_pdf.getRoot().replaceKey("/Outlines", root);
        m_pdf.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));
    }

    struct First {
        const PdfBinder::Part* part;
        QPDFObjectHandle page;
    };
    QPDF m_pdf;
    std::size_t m_count = 0;
    std::vector<First> m_firsts;
};

void BindOpened(std::vector<Opened>& parts, const QString& feetFile, const std::string& file) {
    QPDF feet;
    feet.processFile(PathBytes(feetFile).c_str());
    std::vector<QPDFPageObjectHelper> feetPages = QPDFPageDocumentHelper(feet).getAllPages();
    Book book;
    for (Opened& part : parts) book.Add(part, feetPages);
    book.Write(file);
}

// The old file or the new one, whatever happens in between.
bool BindBeside(std::vector<Opened>& parts, const QString& feet, const QString& file) {
    const std::string target = PathBytes(file), part = target + ".part" + std::to_string(::getpid());
    bool done = false;
    try {
        BindOpened(parts, feet, part);
        done = std::rename(part.c_str(), target.c_str()) == 0;
    } catch (const std::exception&) {
        done = false;
    }
    if (!done) ::unlink(part.c_str());
    return done;
}

} // namespace

namespace PdfBinder {

QString Bind(const std::vector<Part>& parts, const QString& file, QStringList& left) {
    std::vector<Opened> opened = Open(parts, left);
    std::size_t all = 0;
    for (const Opened& each : opened) all += each.pages.size();
    if (all == 0) return QStringLiteral("There is nothing to be bound.");
    const QTemporaryDir folder;
    const QString feet = folder.filePath(QStringLiteral("feet.pdf"));
    if (!folder.isValid() || !DrawFeet(opened, all, feet))
        return QStringLiteral("There is no room for the page numbers.");
    return BindBeside(opened, feet, file) ? QString() : QStringLiteral("The file could not be written: %1").arg(file);
}

} // namespace PdfBinder

} // namespace tessa::qt
