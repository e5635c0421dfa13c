#include "qt/engine/QtBrowserView.h"
#include "qt/engine/QtEngineHost.h"
#include "qt/engine/QtPageSignals.h"
#include "qt/engine/QtProfiles.h"
#include "qt/page/QtAwaited.h"
#include "qt/page/QtPage.h"
#include "qt/page/QtPageTools.h"
#include "qt/page/QtParkedSize.h"
#include "qt/page/QtPreviewBar.h"
#include "qt/page/QtSceneWindows.h"
#include "qt/questions/QtLeaving.h"

#include <QWebEngineView>
#include <algorithm>

// How a view comes to its page, its widget and what lies over them, and how they go.

void QtBrowserView::LayWidget() {
    if (!m_widget || m_services.fullScreen.Has(m_widget)) return;
    QRect page = m_services.host.PageRect(m_place);
    if (m_previewBar) {
        const int height = std::min(m_previewBar->sizeHint().height(), page.height() / 2);
        m_previewBar->setGeometry(page.left(), page.top(), page.width(), height);
        page.setTop(page.top() + height);
    }
    // A question lies over the page: what one is reading or about to click must not move.
    m_widget->setGeometry(page);
    QtQuestionBar& bar = *m_questions->bar;
    if (bar.Asks()) {
        const int height = std::min(bar.HeightFor(page.width()), page.height() / 2);
        bar.setGeometry(page.left(), page.top(), page.width(), height);
        page.setTop(page.top() + height);
    }
    m_questions->covers.Lay(page);
    RaiseBars();
}

void QtBrowserView::RaiseBars() {
    if (m_previewBar) m_previewBar->raise();
    if (m_questions->bar->Asks()) m_questions->bar->raise();
}

// Later, because it may be its own button that ends it.
void QtBrowserView::DropPreviewBar() {
    if (!m_previewBar) return;
    m_previewListening.End();
    m_previewBar->hide();
    m_previewBar->deleteLater();
    m_previewBar.clear();
}

void QtBrowserView::FollowPreview() {
    if (ShowsPreview() == !m_previewBar.isNull()) return;
    if (m_previewBar) {
        DropPreviewBar();
    } else {
        m_previewBar = new QtPreviewBar(m_services.pageArea);
        m_previewListening += m_previewBar->Print.Connect([this] { ResumeNext(ExecWB(BrowserCommand::Print)); });
        m_previewListening += m_previewBar->Close.Connect([this] { m_events.WindowClosing(m_index); });
        m_previewBar->setVisible(m_widget && m_widget->isVisible());
        // The title may have come before the address that makes it a preview's.
        m_events.TitleChange(m_index, NameOf(m_page->title()));
    }
    LayWidget();
}

void QtBrowserView::Show() {
    MakePage();
    MakeWidget();
    LayWidget();
    m_widget->show();
    m_widget->raise();
    m_questions->covers.SetShown(true);
    m_questions->bar->setVisible(m_questions->bar->Asks());
    if (m_previewBar) m_previewBar->show();
    RaiseBars();
    if (m_wantsFocus) SetFocus();
    // Queued: the one that was in front is still being hidden.
    QMetaObject::invokeMethod(
        this, [this] { PrintIfShown(); }, Qt::QueuedConnection);
}

void QtBrowserView::Hide() {
    if (!m_widget) return;
    m_services.fullScreen.Leave(m_widget);
    m_widget->hide();
    m_questions->bar->hide();
    if (m_previewBar) m_previewBar->hide();
    m_questions->covers.SetShown(false);
}

void QtBrowserView::MakePage() {
    if (m_page) return;
    m_page = m_services.profiles.MakePage(m_privacy);
    ApplyMute();
    m_awaited = new QtAwaited(*m_page);
    m_leaving = new QtLeaving(*m_page);
    ConnectLoading();
    ConnectPage();
    MakeQuestions();
    MakeLife();
    MakeWidget();
}

void QtBrowserView::MakeQuestions() {
    // What is decided for a private page ends with it.
    auto* kept = m_privacy == Privacy::Private ? nullptr : m_services.host.Permissions();
    m_questions = std::make_unique<QtPageQuestions>(
        *m_page, m_services.pageArea, m_services.profiles.Accepted(m_privacy),
        m_services.profiles.DialogScheme(m_privacy), m_services.profiles.External(m_privacy), kept);
    WireQuestions();
    m_questions->crashes.Reload.ConnectForLife([this] { ResumeNext(Refresh()); });
    m_questions->covers.FocusPage.ConnectForLife([this] { SetFocus(); });
    m_questions->covers.Changed.ConnectForLife([this] { ShowQuestion(); });
}

void QtBrowserView::MakeLife() {
    m_life = std::make_unique<QtPageLife>(*m_page);
    m_life->AddActivity.ConnectForLife([this](PageActivity& activity) {
        activity.Loading |= m_loading || m_pending.has_value();
        activity.Asks = m_questions->bar->Asks() || !m_questions->covers.Empty();
        activity.FullScreen = m_widget && m_widget->isVisible() && m_widget->window()->isFullScreen();
    });
    m_life->IconChanged.ConnectForLife([this] { m_services.told.IconChanged(m_index); });
}

void QtBrowserView::WireQuestions() {
    m_questions->questions.Changed.ConnectForLife([this] { ShowQuestion(); });
    m_questions->questions.Reworded.ConnectForLife([this] {
        m_questions->bar->ShowWords();
        LayWidget();
    });
    m_questions->links.Refused.ConnectForLife([this](const QString& words) {
        if (m_widget && m_widget->isVisible()) m_services.told.Notice(words);
    });
    m_questions->bar->FocusPage.ConnectForLife([this] { SetFocus(); });
    m_questions->permissions.OpenPopup.ConnectForLife([this](TextView address) { OpenPopup(address); });
    m_questions->permissions.CapturesChanged.ConnectForLife([this] { m_services.told.CapturesChanged(); });
    m_questions->tools.SaveAddress.ConnectForLife([this](QtPage& page, const QUrl& address, const Text& path) {
        m_services.told.SaveAddress(page, address, path);
    });
    m_questions->tools.ShowInspector.ConnectForLife([this](QtPage& page) { m_services.told.ShowInspector(page); });
}

void QtBrowserView::ShowQuestion() {
    QtQuestionBar& bar = *m_questions->bar;
    // What is asked is to be seen.
    if (bar.Asks() || !m_questions->covers.Empty()) m_services.fullScreen.Leave(m_widget);
    bar.ShowCurrent();
    bar.setVisible(bar.Asks() && m_widget && m_widget->isVisible());
    LayWidget();
    m_events.AttentionChange(m_index, bar.Asks() || !m_questions->covers.Empty());
}

void QtBrowserView::MakeWidget() {
    if (m_widget) return;
    m_widget = new QWebEngineView(m_services.pageArea);
    m_widget->hide();
    QtSceneWindows::Hide(*m_widget);
    QtParkedSize::Follow(*m_widget);
    m_widget->setPage(m_page);
    m_widget->setGeometry(m_place.isEmpty() ? m_services.pageArea->rect() : m_place);
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

void QtBrowserView::AskForMenu(QPoint at) {
    if (!m_questions) return;
    const auto show = [self = QPointer<QtBrowserView>(this), place = m_widget->mapToGlobal(at)](const PageContext& in) {
        if (self && self->m_widget) self->ShowMenu(in, place);
    };
    m_questions->tools.AskForMenu(*m_widget, show);
}

void QtBrowserView::ShowMenu(const PageContext& context, QPoint at) {
    // The menu's command may end this view.
    const QtPageSignals& told = m_services.told;
    told.MenuPlace(at);
    m_events.ContextMenu(m_index, context);
    told.MenuPlace(std::nullopt);
}

void QtBrowserView::Release() {
    m_pending.reset();
    m_services.fullScreen.Leave(m_widget);
    m_life.reset();
    // All views are asked about what is left. When a thousand end, that is not to happen for each.
    const bool captured = m_questions && !m_questions->permissions.Captures().empty();
    m_questions.reset();
    DropPreviewBar();
    if (captured) m_services.told.CapturesChanged();
    if (m_page) m_page->disconnect(this);
    if (m_widget) {
        m_widget->hide();
        m_widget->deleteLater();
    }
    // Later, because the page may be in the middle of telling us that it closed itself.
    if (m_page) m_services.profiles.End(*m_page);
    m_widget = nullptr;
    m_page = nullptr;
    m_loading = m_committed = m_failed = m_known = m_newDocument = m_printsLater = false;
}
