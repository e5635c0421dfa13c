#pragma once
#include "base/Signal.h"
#include "qt/script/AddressWalk.h"
#include "qt/script/PageReads.h"
#include "qt/script/PdfWork.h"
#include "qt/script/TabWalk.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessa::qt {

/// Writes the pages of several tabs, or of a group that is not open, to be taken along.
class GroupOutput {
public:
    /// What is written.
    struct Pages {
        std::vector<std::uint32_t> tabs{};           ///< by their numbers; all there are without any
        std::optional<std::vector<Text>> unopened{}; ///< instead, pages by their addresses that no tab shows
        QStringList left{};                          ///< what is not among them, and is named too
    };
    /// How far that is.
    struct Progress {
        std::size_t done = 0, all = 0;
        bool making = false; ///< the pages are there, and are made into one file: counted in percent
    };
    struct Result {
        QString refusal;  ///< why nothing was written, a sentence; empty when something was
        QStringList left; ///< what could not be had
    };
    using Written = std::function<void(const Result&)>;
    /// Who wants to know.
    struct Told {
        Written written;
        std::function<void(const Progress&)> progress{};
        Signal<void()>* stop = nullptr; ///< says that nobody wants it any more; outlives the writing
    };

    /// All outlive it.
    GroupOutput(PageReads& reads, TabWalk& tabs, AddressWalk& addresses)
        : m_reads(reads), m_tabs(tabs), m_addresses(addresses) {}

    /// The pages of a group by the path of its file, as they stand in it.
    [[nodiscard]] static Pages UnopenedPages(const Text& group);

    /// All of them into one PDF with an outline. Replaces the file.
    void Pdf(const Pages& pages, const QString& file, const Told& told);
    /// Each into a file of its own, in a folder of the group's name. Beside it comes a new group that opens them.
    /// Neither may be there yet.
    void Keep(const Pages& pages, const QString& group, const Told& told);

private:
    struct Job;
    [[nodiscard]] static std::shared_ptr<Job> Begin(const Told& told);
    void Go(const Pages& pages, PageSteps steps, const std::shared_ptr<Job>& job);
    void Bind(const std::shared_ptr<Job>& job, const QString& file);

    PageReads& m_reads;
    TabWalk& m_tabs;
    AddressWalk& m_addresses;
    PdfWork m_work;
};

} // namespace tessa::qt
