#pragma once
#include "common/ResumeNext.h"

#include <QPageLayout>

class QByteArray;
class QString;
class QtPage;
class QWidget;

/// Saving and printing of pages. Keeps the page layout that the user has chosen.
class QtPageOutput {
public:
    /// Asks where to and saves: as a complete page with its files, as one MHTML file, or as PDF. The page must live
    /// until the user has answered, else nothing is saved.
    Outcome SaveAs(QtPage& page, QWidget* parent);
    /// Asks for a printer, or a PDF file where there is none, and prints.
    Outcome Print(QtPage& page, QWidget* parent);
    /// Asks for paper, orientation and margins.
    Outcome PageSetup(QWidget* parent);

    [[nodiscard]] const QPageLayout& Layout() const { return m_layout; }

    /// A file name that suggests itself for a page's title: without what file systems refuse.
    [[nodiscard]] static QString FileNameFor(const QString& title);

private:
    static void Save(QtPage& page, const QString& path, QWidget* parent);
    static void WritePdf(QtPage& page, const QString& path, const QPageLayout& layout, QWidget* parent);

    QPageLayout m_layout{QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(15, 15, 15, 15),
                         QPageLayout::Millimeter};
};
