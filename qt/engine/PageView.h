#pragma once
#include "platform/BrowserView.h"
#include "qt/engine/LoadEvents.h"
#include "qt/engine/Navigation.h"
#include "qt/engine/NewWindows.h"
#include "qt/engine/PagePrinting.h"
#include "qt/engine/PageSurface.h"
#include "qt/engine/Schedule.h"
#include "qt/engine/ViewContext.h"
#include "qt/engine/ViewPage.h"
#include "qt/engine/Whereabouts.h"

#include <QIcon>
#include <QObject>
#include <memory>

namespace tessa::qt {

/// One page view on Qt WebEngine. The engine's page and its widget come into being with the first navigation, or when
/// the view is first shown. The view's parts do the work; the view makes the page, and ends it.
class PageView final : public QObject,
                       public BrowserView,
                       private Schedule::View,
                       private NewWindows::Taker,
                       private PageDocument {
public:
    /// Both outlive the view.
    PageView(std::int16_t index, BrowserViewEvents& events, const ViewServices& services, Privacy privacy);
    ~PageView() override;

    Outcome Navigate(TextView address) override;
    Outcome Stop() override { return m_navigation.Stop(); }
    Outcome Refresh() override;
    Outcome GoBack() override;
    Outcome GoForward() override;
    Outcome GoHome() override;
    Outcome ExecWB(BrowserCommand command) override;
    [[nodiscard]] Text LocationName() const override;
    [[nodiscard]] PageDocument* Document() override;
    [[nodiscard]] int ZoomLevel() const override { return m_zoom; }
    [[nodiscard]] PageTools* Tools() override { return Questions() ? &Questions()->tools : nullptr; }
    [[nodiscard]] PageLife* Life() override { return m_page ? m_page->Life() : nullptr; }
    [[nodiscard]] PageReading* Reading() override { return m_page ? &m_page->Reader() : nullptr; }
    [[nodiscard]] PageSecurity Security() const override;
    [[nodiscard]] bool Busy() const override { return m_where.stage.Busy(); }
    [[nodiscard]] PageProgress Progress() const override;
    [[nodiscard]] Text LocationURL() const override { return m_where.Address(); }
    [[nodiscard]] bool Blank() const override;
    [[nodiscard]] bool MayHold() const override;
    void AskToLeave(LeaveReason why, std::function<void(bool holds)> told) override;
    void AskUserToLeave(std::function<void(bool leaves)> answered) override;
    void LetUserStay() override;
    [[nodiscard]] std::string History() const override { return m_navigation.History(); }
    Outcome Restore(const std::string& history, TextView address) override {
        return m_navigation.Restore(history, address);
    }
    Outcome RestoreLater(const std::string& history, TextView address) override {
        return m_navigation.RestoreLater(history, address);
    }
    [[nodiscard]] bool Audible() const override { return m_page && m_page->Page().recentlyAudible(); }
    [[nodiscard]] bool Muted() const override { return m_muted; }
    void SetMuted(bool muted) override;
    void SetVisible(bool visible) override;
    void SetTabStop(bool tabStop) override { m_surface.SetTabStop(tabStop); }
    void Move(const Rect& place) override;
    void MoveLeft(Twips left) override;
    void BringToFront() override;
    void ShowBeside() override;
    void SetFocus() override { m_surface.SetFocus(); }

    // For the engine.
    /// See `Navigation`.
    void Renew();
    /// What waits until somebody looks loads now; false when nothing does.
    bool LoadPutOff() { return m_navigation.Look(); }
    /// Lays the widget out, because bars beside the page came or went.
    void LayWidget() { m_surface.Lay(); }
    /// Silences the page or not, as the tab and the load switches have it.
    void ApplyMute();
    [[nodiscard]] QIcon Icon() const;
    /// The engine's page; nothing before it came into being.
    [[nodiscard]] WebPage* Page() const override { return m_page ? &m_page->Page() : nullptr; }
    [[nodiscard]] tessa::Privacy Privacy() const { return m_self.privacy; }
    /// Whether it is for its content alone, in no tab. Such views have negative indexes.
    [[nodiscard]] bool Unseen() const { return m_self.index < 0; }
    /// What the page asks for, and what covers it; nothing while there is no page.
    [[nodiscard]] WebPageQuestions* Questions() const { return m_page ? m_page->Questions() : nullptr; }
    [[nodiscard]] QWebEngineView* Widget() const { return m_surface.Widget(); }
    /// What covers the page because its process has died; nothing while it lives.
    [[nodiscard]] qt::CrashPage* CrashPage() const { return Questions() ? Questions()->crashes.Shown() : nullptr; }

private:
    // Its turns.
    void StartNavigation() override;
    void Show(ShownAs place) override;
    void Hide() override { m_surface.Hide(); }

    // What was opened from another view.
    void TakeIn(QWebEngineNewWindowRequest& request, bool byPerson) override;
    void TakePreview(const QByteArray& pdf, const QString& name) override;

    // The document.
    Outcome Zoom(int level) override;

    void ApplyZoom();
    void MakePage();
    void EndPage();
    /// Gives up the page if it is being printed: whether that was so. Then another one begins to load what it showed.
    bool LeavePrinted();
    void FollowPage();
    void FollowWindow();
    void FollowQuestions();
    void FollowLife();
    void OpenPopup(TextView address);
    void OnWindowClose();

    const ViewContext m_self;
    Whereabouts m_where;
    Navigation m_navigation;
    LoadEvents m_loads;
    PageSurface m_surface;
    PagePrinting m_printing;
    std::unique_ptr<ViewPage> m_page;
    int m_zoom = 2;
    bool m_muted = false;
};

} // namespace tessa::qt
