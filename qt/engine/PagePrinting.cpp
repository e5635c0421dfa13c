#include "qt/engine/PagePrinting.h"

#include "qt/base/Strings.h"
#include "qt/engine/NewWindows.h"
#include "qt/engine/PageSurface.h"
#include "qt/engine/Profiles.h"
#include "qt/engine/ViewPage.h"
#include "qt/engine/Whereabouts.h"
#include "qt/page/PageOutput.h"
#include "qt/page/PreviewBar.h"
#include "qt/page/StartPageScheme.h"
#include "qt/page/WebPage.h"

#include <utility>

namespace tessa::qt {

PagePrinting::PagePrinting(const ViewContext& view, const Whereabouts& where, PageSurface& surface)
    : m_view(view), m_where(where), m_surface(surface) {}

void PagePrinting::SetPage(ViewPage* page) {
    m_page = page;
    if (page) return;
    DropBar();
    m_printsLater = m_previewsLater = false;
}

Outcome PagePrinting::Print() {
    if (!m_page || m_page->Life()->Asleep()) return Outcome::Failed;
    m_view.services.output.Print(m_page->Page(), m_view.services.pageArea);
    return Outcome::Done;
}

void PagePrinting::Preview() {
    const QPointer<PagePrinting> self(this);
    // A PDF is its own preview.
    const auto fetched = [self, name = PageOutput::FileNameFor(m_page->Page().title())](const QByteArray& pdf) {
        if (self) self->PreviewSoon({pdf}, name);
    };
    m_view.services.output.FetchPdf(m_page->Page(), fetched, [self] {
        if (self && self->m_page) self->PrintToPreview();
    });
}

void PagePrinting::PrintToPreview() {
    // Else stopping the load, which closing the tab does, would crash the engine.
    m_previewsLater = m_where.stage.Busy();
    if (m_previewsLater) return;
    PageOutput& output = m_view.services.output;
    m_page->Page().Print(output.Layout(), PageOutput::kPrintPatience,
                         [self = QPointer<PagePrinting>(this),
                          name = PageOutput::FileNameFor(m_page->Page().title())](const PrintedPage& printed) {
                             if (self) self->PreviewSoon(printed, name);
                         });
}

// Queued: the engine is in the middle of telling.
void PagePrinting::PreviewSoon(const PrintedPage& printed, const QString& name) {
    const PageOutput& output = m_view.services.output;
    if (!printed.answered) return output.Say(QStringLiteral("The page does not answer. No preview was made."));
    if (printed.pdf.isEmpty()) return output.Say(QStringLiteral("The preview could not be made."));
    QMetaObject::invokeMethod(
        this, [this, pdf = printed.pdf, name] { OpenPreview(pdf, name); }, Qt::QueuedConnection);
}

void PagePrinting::OpenPreview(const QByteArray& pdf, const QString& name) {
    const NewWindows& windows = m_view.services.newWindows;
    auto* opened = windows.Find(m_view.events.NewWindow2(m_view.index, NewWindowPlace::InFront));
    if (opened) opened->TakePreview(pdf, name);
}

QUrl PagePrinting::Keep(const QByteArray& pdf, const QString& name) {
    m_preview = std::make_shared<const QByteArray>(pdf);
    return m_view.services.profiles.OwnPages(m_view.privacy).AddPreview(m_preview, name);
}

void PagePrinting::NoteLoaded() {
    if (m_previewsLater) PrintToPreview();
}

void PagePrinting::NoteWish() {
    // The dialog is modal: only a person may bring it up, not the page by itself.
    if (m_page->Page().TakePrintWish()) m_printsLater = true;
    // Queued: the engine is in the middle of asking.
    QMetaObject::invokeMethod(
        this, [this] { PrintIfShown(); }, Qt::QueuedConnection);
}

// Only who is looking at a page is asked about it. One that was opened to be printed is not there yet when it asks.
void PagePrinting::PrintIfShown() {
    if (!m_surface.Visible() || !std::exchange(m_printsLater, false)) return;
    ResumeNext(Print());
}

bool PagePrinting::ShowsPreview() const {
    return m_preview && m_where.stage.HasDocument() && StartPageScheme::IsPreview(m_where.shown);
}

// Else the tab could not be told from the page's own.
Text PagePrinting::NameOf(const QString& title) const {
    return ShowsPreview() ? u"Preview: " + FromQt(title) : FromQt(title);
}

void PagePrinting::FollowPage() {
    if (ShowsPreview() == !m_bar.isNull()) return;
    m_bar ? DropBar() : MakeBar();
    m_surface.Lay();
}

void PagePrinting::MakeBar() {
    m_bar = new PreviewBar(m_view.services.pageArea);
    m_listening += m_bar->Print.Connect([this] { ResumeNext(Print()); });
    m_listening += m_bar->Close.Connect([this] { m_view.events.WindowClosing(m_view.index); });
    m_bar->setVisible(m_surface.Visible());
    m_surface.SetBar(m_bar);
    // The title may have come before the address that makes it a preview's.
    m_view.events.TitleChange(m_view.index, NameOf(m_page->Page().title()));
}

// Later, because it may be its own button that ends it.
void PagePrinting::DropBar() {
    if (!m_bar) return;
    m_listening.End();
    m_surface.SetBar(nullptr);
    m_bar->hide();
    m_bar->deleteLater();
    m_bar.clear();
}

} // namespace tessa::qt
