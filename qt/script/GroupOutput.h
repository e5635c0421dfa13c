#pragma once
#include "qt/script/PageReads.h"
#include "qt/script/PdfWork.h"
#include "qt/script/TabWalk.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace tessa::qt {

/// Writes the pages of several tabs, to be taken along.
class GroupOutput {
public:
    struct Result {
        QString refusal;  ///< why nothing was written, a sentence; empty when something was
        QStringList left; ///< what could not be had
    };
    using Written = std::function<void(const Result&)>;

    /// Both outlive it.
    GroupOutput(PageReads& reads, TabWalk& walk) : m_reads(reads), m_walk(walk) {}

    /// All these tabs, or all there are, into one PDF with an outline. Replaces the file.
    void Pdf(const std::vector<std::uint32_t>& numbers, const QString& file, const Written& written);
    /// Each into a file of its own, in a folder of the group's name beside a new group that opens them. Neither may be
    /// there yet.
    void Keep(const std::vector<std::uint32_t>& numbers, const QString& group, const Written& written);

private:
    PageReads& m_reads;
    TabWalk& m_walk;
    PdfWork m_work;
};

} // namespace tessa::qt
