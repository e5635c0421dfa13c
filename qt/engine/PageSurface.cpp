#include "qt/engine/PageSurface.h"

#include "qt/engine/EngineHost.h"
#include "qt/engine/PageSignals.h"
#include "qt/engine/ViewPage.h"
#include "qt/page/ParkedSize.h"
#include "qt/page/SceneWindows.h"
#include "qt/page/WebPage.h"
#include "qt/page/WebPageTools.h"

#include <QWebEngineFullScreenRequest>
#include <QWebEngineView>
#include <algorithm>
#include <utility>

namespace tessa::qt {

void PageSurface::SetPage(ViewPage& page) {
    m_page = &page;
    FollowQuestions();
    MakeWidget();
}

void PageSurface::End() {
    m_page = nullptr;
    if (auto* widget = std::exchange(m_widget, nullptr).data()) {
        widget->hide();
        widget->deleteLater();
    }
}

bool PageSurface::Visible() const { return m_widget && m_widget->isVisible(); }

bool PageSurface::FillsScreen() const { return Visible() && m_widget->window()->isFullScreen(); }

void PageSurface::MakeWidget() {
    const QPointer<QWidget>& area = m_view.services.pageArea;
    m_widget = new QWebEngineView(area);
    m_widget->hide();
    SceneWindows::Hide(*m_widget);
    ParkedSize::Follow(*m_widget);
    m_widget->setPage(&m_page->Page());
    m_widget->setGeometry(m_place.isEmpty() ? area->rect() : m_place);
    SetTabStop(m_tabStop);
    m_widget->setContextMenuPolicy(Qt::CustomContextMenu);
    // Queued: the engine is in the middle of telling what lies there.
    connect(
        m_widget, &QWidget::customContextMenuRequested, this,
        [this](QPoint at) {
            if (m_widget) AskForMenu(at);
        },
        Qt::QueuedConnection);
}

void PageSurface::FollowQuestions() {
    WebPageQuestions& asked = *m_page->Questions();
    asked.questions.Changed.ConnectForLife([this] { ShowQuestion(); });
    asked.questions.Reworded.ConnectForLife([this] {
        m_page->Questions()->bar->ShowWords();
        Lay();
    });
    asked.covers.Changed.ConnectForLife([this] { ShowQuestion(); });
    asked.bar->FocusPage.ConnectForLife([this] { SetFocus(); });
    asked.covers.FocusPage.ConnectForLife([this] { SetFocus(); });
}

void PageSurface::ShowQuestion() {
    const bool asks = m_page->Asks();
    // What is asked is to be seen.
    if (asks) LeaveFullScreen();
    QuestionBar& bar = *m_page->Questions()->bar;
    bar.ShowCurrent();
    bar.setVisible(bar.Asks() && Visible());
    Lay();
    m_view.events.AttentionChange(m_view.index, asks);
}

void PageSurface::Show(ShownAs place) {
    // Another page has the keyboard from now on, which must be seen where that goes.
    if (place == ShownAs::Beside) {
        LeaveFullScreen();
        ForgetFocus();
    }
    m_page->Questions()->covers.SetInFront(place == ShownAs::Front);
    Lay();
    m_widget->show();
    m_widget->raise();
    WebPageQuestions& asked = *m_page->Questions();
    asked.covers.SetShown(true);
    asked.bar->setVisible(asked.bar->Asks());
    if (m_bar) m_bar->show();
    RaiseBars();
    if (m_wantsFocus) SetFocus();
}

void PageSurface::Hide() {
    if (!m_widget) return;
    LeaveFullScreen();
    m_widget->hide();
    m_page->Questions()->bar->hide();
    if (m_bar) m_bar->hide();
    m_page->Questions()->covers.SetShown(false);
}

void PageSurface::Move(const QRect& place) {
    m_place = place;
    Lay();
}

void PageSurface::Lay() {
    // A page that is about to go is hidden, which may have all of them laid.
    if (!m_widget || !m_page || m_view.services.fullScreen.Has(m_widget)) return;
    QRect page = m_view.services.host.PageRect(m_place, m_view.index);
    if (m_bar) {
        const int height = std::min(m_bar->sizeHint().height(), page.height() / 2);
        m_bar->setGeometry(page.left(), page.top(), page.width(), height);
        page.setTop(page.top() + height);
    }
    // A question lies over the page: what one is reading or about to click must not move.
    m_widget->setGeometry(page);
    QuestionBar& bar = *m_page->Questions()->bar;
    if (bar.Asks()) {
        const int height = std::min(bar.HeightFor(page.width()), page.height() / 2);
        bar.setGeometry(page.left(), page.top(), page.width(), height);
        page.setTop(page.top() + height);
    }
    m_page->Questions()->covers.Lay(page);
    RaiseBars();
}

void PageSurface::RaiseBars() {
    if (m_bar) m_bar->raise();
    QuestionBar& bar = *m_page->Questions()->bar;
    if (bar.Asks()) bar.raise();
}

void PageSurface::SetTabStop(bool tabStop) {
    m_tabStop = tabStop;
    if (m_widget) m_widget->setFocusPolicy(tabStop ? Qt::WheelFocus : Qt::NoFocus);
}

void PageSurface::SetFocus() {
    m_wantsFocus = true;
    if (!Visible() || m_page->Questions()->covers.TakeFocus()) return;
    m_widget->setFocus(Qt::OtherFocusReason);
}

void PageSurface::LeaveFullScreen() { m_view.services.fullScreen.Leave(m_widget); }

void PageSurface::OnFullScreen(QWebEngineFullScreenRequest request) {
    if (!request.toggleOn()) {
        request.accept();
        LeaveFullScreen();
        return Lay();
    }
    // A page that nobody sees, or that asks something, is not to fill the screen.
    if (!Visible() || m_page->Asks()) return request.reject();
    request.accept();
    m_view.services.fullScreen.Enter(*m_widget, WebPage::HostAndPort(request.origin()));
}

void PageSurface::AskForMenu(QPoint at) {
    const auto show = [self = QPointer<PageSurface>(this), place = m_widget->mapToGlobal(at)](const PageContext& in) {
        if (self && self->m_widget) self->ShowMenu(in, place);
    };
    m_page->Questions()->tools.AskForMenu(*m_widget, show);
}

void PageSurface::ShowMenu(const PageContext& context, QPoint at) const {
    // The menu's command may end this view.
    const PageSignals& told = m_view.services.told;
    told.MenuPlace(at);
    m_view.events.ContextMenu(m_view.index, context);
    told.MenuPlace(std::nullopt);
}

} // namespace tessa::qt
