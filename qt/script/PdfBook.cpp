#include "qt/script/PdfBook.h"

#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <stdexcept>

namespace tessa::qt {

namespace {

QPDFObjectHandle TextObject(const QString& text) { return QPDFObjectHandle::newUnicodeString(text.toStdString()); }

/// Ends the writing when nobody wants it any more.
class Stopping final : public QPDFWriter::ProgressReporter {
public:
    explicit Stopping(const std::function<bool(int percent)>& goesOn) : m_goesOn(goesOn) {}
    void reportProgress(int percent) override {
        if (!m_goesOn(percent)) throw std::runtime_error("stopped");
    }

private:
    const std::function<bool(int percent)>& m_goesOn;
};

} // namespace

void PdfBook::Add(Chapter& chapter, std::vector<QPDFPageObjectHelper>& feet) {
    const std::size_t first = m_count;
    for (QPDFPageObjectHelper& page : chapter.pages) {
        m_pdf.addPage(page.getObjectHandle(), false);
        QPDFPageObjectHelper added(m_pdf.getAllPages().back());
        PutFoot(added, feet.at(m_count++));
        if (m_count == first + 1) m_firsts.push_back({chapter.title, added.getObjectHandle()});
    }
}

void PdfBook::Write(std::FILE* file, const std::function<bool(int percent)>& goesOn) {
    WriteOutline();
    QPDFWriter writer(m_pdf);
    writer.setOutputFile("", file, false);
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.registerProgressReporter(std::make_shared<Stopping>(goesOn));
    writer.write();
}

void PdfBook::PutFoot(QPDFPageObjectHelper& page, QPDFPageObjectHelper& foot) {
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

void PdfBook::WriteOutline() {
    QPDFObjectHandle root = m_pdf.makeIndirectObject(QPDFObjectHandle::parse("<< /Type /Outlines >>"));
    std::vector<QPDFObjectHandle> entries;
    for (const First& each : m_firsts) {
        QPDFObjectHandle entry = m_pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        entry.replaceKey("/Title", TextObject(each.title));
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

} // namespace tessa::qt
