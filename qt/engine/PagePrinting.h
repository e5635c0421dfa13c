#pragma once
#include "base/ResumeNext.h"
#include "base/Signal.h"
#include "base/Text.h"
#include "qt/engine/ViewContext.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <memory>

class QUrl;

namespace tessa::qt {

class PageSurface;
class PreviewBar;
class ViewPage;
class Whereabouts;
struct PrintedPage;

/// Prints a view's page, and shows beforehand what that gives. A preview is a PDF in a view of its own, with a bar
/// above it.
class PagePrinting final : public QObject {
public:
    /// All outlive it.
    PagePrinting(const ViewContext& view, const Whereabouts& where, PageSurface& surface);

    /// The view has its page, until that is taken away.
    void SetPage(ViewPage* page);

    /// Asks where to and prints.
    Outcome Print();
    /// Shows what would be printed, as soon as the page is there.
    void Preview();
    /// The page wants to be printed, which happens once somebody sees it.
    void NoteWish();
    void ForgetWish() { m_printsLater = false; }
    void PrintIfShown();
    /// A load has finished.
    void NoteLoaded();

    /// The view is for this PDF alone from now on: the address at which it has it.
    [[nodiscard]] QUrl Keep(const QByteArray& pdf, const QString& name);
    /// What a page of that title is called.
    [[nodiscard]] Text NameOf(const QString& title) const;
    /// The bar is there when a preview is shown, else not.
    void FollowPage();

private:
    [[nodiscard]] bool ShowsPreview() const;
    void PrintToPreview();
    /// The view may show another page by then.
    void PreviewSoon(const PrintedPage& printed, const QString& name);
    void OpenPreview(const QByteArray& pdf, const QString& name);
    void MakeBar();
    void DropBar();

    const ViewContext m_view;
    const Whereabouts& m_where;
    PageSurface& m_surface;
    ViewPage* m_page = nullptr;
    std::shared_ptr<const QByteArray> m_preview; ///< the PDF that the view was opened for
    QPointer<PreviewBar> m_bar;                  ///< above it, while it is shown
    bool m_printsLater = false;                  ///< as soon as the page is shown
    bool m_previewsLater = false;                ///< as soon as the page is there
    Connections m_listening;                     ///< to the bar
};

} // namespace tessa::qt
