#pragma once
#include "qt/script/GroupOutput.h"

class QPrinter;
class QWidget;

namespace tessa::qt {

class PageOutput;

/// Prints pages, one behind the other, as the PDF that is made of them.
class GroupPrint {
public:
    /// All outlive it. `pages` knows the page layout that the user has chosen.
    GroupPrint(GroupOutput& output, const PageOutput& pages, QWidget& window)
        : m_output(output), m_pages(pages), m_window(window) {}

    /// Asks for a printer, or a PDF file where there is none, and prints. `told` hears how it goes, and nothing when
    /// the user thought better of it.
    void Print(const GroupOutput::Pages& pages, const GroupOutput::Told& told);

private:
    GroupOutput& m_output;
    const PageOutput& m_pages;
    QWidget& m_window;
};

} // namespace tessa::qt
