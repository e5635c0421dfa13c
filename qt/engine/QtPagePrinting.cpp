#include "qt/engine/QtPagePrinting.h"

#include "qt/base/QtText.h"
#include "qt/engine/QtNewWindows.h"
#include "qt/engine/QtPageSurface.h"
#include "qt/engine/QtProfiles.h"
#include "qt/engine/QtViewPage.h"
#include "qt/engine/QtWhereabouts.h"
#include "qt/page/QtPage.h"
#include "qt/page/QtPageOutput.h"
#include "qt/page/QtPreviewBar.h"
#include "qt/page/QtStartPage.h"

#include <utility>

namespace tessa::qt {

QtPagePrinting::QtPagePrinting(const QtViewContext& view, const QtWhereabouts& where, QtPageSurface& surface)
    : m_view(view), m_where(where), m_surface(surface) {}

void QtPagePrinting::SetPage(QtViewPage* page) {
    m_page = page;
    if (page) return;
    DropBar();
    m_printsLater = m_previewsLater = false;
}

Outcome QtPagePrinting::Print() {
    if (!m_page || m_page->Life()->Asleep()) return Outcome::Failed;
    return m_view.services.output.Print(m_page->Page(), m_view.services.pageArea);
}

void QtPagePrinting::Preview() {
    const QPointer<QtPagePrinting> self(this);
    // A PDF is its own preview.
    const bool isPdf = m_view.services.output.FetchPdf(m_page->Page(), [self](const QByteArray& pdf) {
        if (self) self->PreviewSoon(pdf);
    });
    if (!isPdf && self && m_page) PrintToPreview();
}

void QtPagePrinting::PrintToPreview() {
    // Else stopping the load, which closing the tab does, would crash the engine.
    m_previewsLater = m_where.stage.Busy();
    if (m_previewsLater) return;
    m_page->Page().Print(m_view.services.output.Layout(),
                         [self = QPointer<QtPagePrinting>(this)](const QByteArray& pdf) {
                             if (self) self->PreviewSoon(pdf);
                         });
}

// Queued: the engine is in the middle of telling.
void QtPagePrinting::PreviewSoon(const QByteArray& pdf) {
    if (pdf.isEmpty()) return;
    QMetaObject::invokeMethod(
        this, [this, pdf] { OpenPreview(pdf); }, Qt::QueuedConnection);
}

void QtPagePrinting::OpenPreview(const QByteArray& pdf) {
    const QString name = m_page ? QtPageOutput::FileNameFor(m_page->Page().title()) : QString();
    const QtNewWindows& windows = m_view.services.newWindows;
    auto* opened = windows.Find(m_view.events.NewWindow2(m_view.index, NewWindowPlace::InFront));
    if (opened) opened->TakePreview(pdf, name);
}

QUrl QtPagePrinting::Keep(const QByteArray& pdf, const QString& name) {
    m_preview = std::make_shared<const QByteArray>(pdf);
    return m_view.services.profiles.OwnPages(m_view.privacy).AddPreview(m_preview, name);
}

void QtPagePrinting::NoteLoaded() {
    if (m_previewsLater) PrintToPreview();
}

void QtPagePrinting::NoteWish() {
    // The dialog is modal: only a person may bring it up, not the page by itself.
    if (m_page->Page().TakePrintWish()) m_printsLater = true;
    // Queued: the engine is in the middle of asking.
    QMetaObject::invokeMethod(
        this, [this] { PrintIfShown(); }, Qt::QueuedConnection);
}

// Only who is looking at a page is asked about it. One that was opened to be printed is not there yet when it asks.
void QtPagePrinting::PrintIfShown() {
    if (!m_surface.Visible() || !std::exchange(m_printsLater, false)) return;
    ResumeNext(Print());
}

bool QtPagePrinting::ShowsPreview() const {
    return m_preview && m_where.stage.HasDocument() && QtStartPage::IsPreview(m_where.shown);
}

// Else the tab could not be told from the page's own.
Text QtPagePrinting::NameOf(const QString& title) const {
    return ShowsPreview() ? u"Preview: " + FromQt(title) : FromQt(title);
}

void QtPagePrinting::FollowPage() {
    if (ShowsPreview() == !m_bar.isNull()) return;
    m_bar ? DropBar() : MakeBar();
    m_surface.Lay();
}

void QtPagePrinting::MakeBar() {
    m_bar = new QtPreviewBar(m_view.services.pageArea);
    m_listening += m_bar->Print.Connect([this] { ResumeNext(Print()); });
    m_listening += m_bar->Close.Connect([this] { m_view.events.WindowClosing(m_view.index); });
    m_bar->setVisible(m_surface.Visible());
    m_surface.SetBar(m_bar);
    // The title may have come before the address that makes it a preview's.
    m_view.events.TitleChange(m_view.index, NameOf(m_page->Page().title()));
}

// Later, because it may be its own button that ends it.
void QtPagePrinting::DropBar() {
    if (!m_bar) return;
    m_listening.End();
    m_surface.SetBar(nullptr);
    m_bar->hide();
    m_bar->deleteLater();
    m_bar.clear();
}

} // namespace tessa::qt
