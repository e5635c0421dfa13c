#pragma once
#include <QString>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>
// What newer releases of the library want to be told.
#define POINTERHOLDER_TRANSITION 4
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace tessa::qt {

/// The PDF that several are bound to. What it is made of is read while it is written, and lives until then.
class PdfBook {
public:
    /// One of those PDFs.
    struct Chapter {
        QString title; ///< in the outline
        QString words; ///< in the foot
        std::unique_ptr<QPDF> pdf;
        std::vector<QPDFPageObjectHelper> pages;
    };

    PdfBook() { m_pdf.emptyPDF(); }

    /// Adds the pages of one. Of the feet each page takes the next one.
    void Add(Chapter& chapter, std::vector<QPDFPageObjectHelper>& feet);
    /// Writes it, with its outline. Throws, as the library does, when that fails, or when `goesOn`, which hears how
    /// far it is, says no.
    void Write(std::FILE* file, const std::function<bool(int percent)>& goesOn);

private:
    struct First {
        QString title;
        QPDFObjectHandle page;
    };

    void PutFoot(QPDFPageObjectHelper& page, QPDFPageObjectHelper& foot);
    void WriteOutline();

    QPDF m_pdf;
    std::size_t m_count = 0;
    std::vector<First> m_firsts; ///< the first page of each
};

} // namespace tessa::qt
