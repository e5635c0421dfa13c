#include "qt/script/PdfBinder.h"

#include "qt/base/PathBytes.h"
#include "qt/script/PdfBook.h"
#include "qt/script/PdfFeet.h"

#include <QTemporaryDir>
#include <cstdio>
#include <exception>
#include <memory>
#include <qpdf/ClosedFileInputSource.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <unistd.h>
#include <utility>

namespace tessa::qt {

namespace {

using Opened = PdfBook::Chapter;

/// Of more files not all are open at a time: a process may have only so many.
constexpr std::size_t kMostOpen = 100;

struct Size {
    double width, height; ///< points
};

Size SizeOf(QPDFPageObjectHelper page) {
    const QPDFObjectHandle::Rectangle box = page.getMediaBox().getArrayAsRectangle();
    return {box.urx - box.llx, box.ury - box.lly};
}

void Read(QPDF& pdf, const std::string& file, bool staysOpen) {
    pdf.setSuppressWarnings(true);
    if (staysOpen)
        pdf.processFile(file.c_str());
    else
        pdf.processInputSource(std::make_shared<ClosedFileInputSource>(file.c_str()));
}

std::vector<Opened> Open(const std::vector<PdfBinder::Part>& parts, QStringList& left) {
    std::vector<Opened> opened;
    for (const PdfBinder::Part& part : parts) {
        auto pdf = std::make_unique<QPDF>();
        const QString name = part.title.isEmpty() ? part.address : part.title;
        const QString words = part.title.isEmpty() ? name : name + QStringLiteral("  ") + part.address;
        try {
            Read(*pdf, PathBytes(part.file), parts.size() <= kMostOpen);
            auto pages = QPDFPageDocumentHelper(*pdf).getAllPages();
            opened.push_back({name, words, std::move(pdf), std::move(pages)});
        } catch (const std::exception&) {
            left.append(name);
        }
    }
    return opened;
}

std::vector<PdfFeet::Foot> FeetOf(const std::vector<Opened>& parts, std::size_t all) {
    std::vector<PdfFeet::Foot> feet;
    for (const Opened& part : parts) {
        for (const QPDFPageObjectHelper& page : part.pages) {
            const Size size = SizeOf(page);
            feet.push_back(
                {size.width, size.height, part.words, QStringLiteral("%1/%2").arg(feet.size() + 1).arg(all)});
        }
    }
    return feet;
}

/// A file being written. The library would not say that its last bytes found no room.
class Output {
public:
    explicit Output(const std::string& path) : m_file(std::fopen(path.c_str(), "wb")) {}
    ~Output() {
        if (m_file) (void)std::fclose(m_file);
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    [[nodiscard]] std::FILE* File() const { return m_file; }
    /// Whether all of it is on the disk.
    [[nodiscard]] bool Close() {
        const bool whole = std::ferror(m_file) == 0 && std::fflush(m_file) == 0 && ::fsync(::fileno(m_file)) == 0;
        return std::fclose(std::exchange(m_file, nullptr)) == 0 && whole;
    }

private:
    std::FILE* m_file;
};

// The old file or the new one, whatever happens in between.
class BesideTarget {
public:
    explicit BesideTarget(const QString& file) : m_target(PathBytes(file)) {}
    ~BesideTarget() {
        if (!m_done) ::unlink(m_part.c_str());
    }
    BesideTarget(const BesideTarget&) = delete;
    BesideTarget& operator=(const BesideTarget&) = delete;

    [[nodiscard]] const std::string& Path() const { return m_part; }
    [[nodiscard]] bool Take() { return m_done = std::rename(m_part.c_str(), m_target.c_str()) == 0; }

private:
    std::string m_target;
    std::string m_part = m_target + ".part" + std::to_string(::getpid());
    bool m_done = false;
};

/// How much of the work is done when all pages are together; the rest is writing them.
constexpr int kTogether = 40;

/// Tells each percent once.
class Percents {
public:
    explicit Percents(const PdfBinder::Wish& wish) : m_wish(wish) {}
    void Tell(int percent) {
        if (percent <= m_last || !m_wish.progress) return;
        m_wish.progress(m_last = percent);
    }

private:
    const PdfBinder::Wish& m_wish;
    int m_last = -1;
};

bool BindOpened(std::vector<Opened>& parts, const QString& feetFile, const QString& file, const PdfBinder::Wish& wish) {
    Percents percents(wish);
    BesideTarget beside(file);
    try {
        QPDF feet;
        Read(feet, PathBytes(feetFile), true);
        std::vector<QPDFPageObjectHelper> feetPages = QPDFPageDocumentHelper(feet).getAllPages();
        PdfBook book;
        int added = 0;
        for (Opened& part : parts) {
            if (wish.stop) return false;
            book.Add(part, feetPages);
            percents.Tell(kTogether * ++added / static_cast<int>(parts.size()));
        }
        Output output(beside.Path());
        if (!output.File()) return false;
        book.Write(output.File(), [&](int percent) {
            percents.Tell(kTogether + (100 - kTogether) * percent / 100);
            return !wish.stop;
        });
        return output.Close() && beside.Take();
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

namespace PdfBinder {

Bound Bind(const std::vector<Part>& parts, const QString& file, const Wish& wish) {
    Bound bound;
    std::vector<Opened> opened = Open(parts, bound.left);
    std::size_t all = 0;
    for (const Opened& each : opened) all += each.pages.size();
    const QTemporaryDir folder;
    const QString feet = folder.filePath(QStringLiteral("feet.pdf"));
    if (all == 0)
        bound.refusal = QStringLiteral("There is nothing to be bound.");
    else if (!folder.isValid() || !PdfFeet::Draw(FeetOf(opened, all), feet, wish.stop))
        bound.refusal = QStringLiteral("There is no room for the page numbers.");
    else if (!BindOpened(opened, feet, file, wish))
        bound.refusal = QStringLiteral("The file could not be written: %1").arg(file);
    return bound;
}

} // namespace PdfBinder

} // namespace tessa::qt
