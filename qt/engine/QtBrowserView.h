#pragma once
#include "platform/BrowserView.h"
#include "qt/engine/QtNewWindows.h"
#include "qt/engine/QtSchedule.h"
#include "qt/engine/QtViewServices.h"
#include "qt/page/QtAddress.h"
#include "qt/page/QtPage.h"
#include "qt/page/QtPageLife.h"
#include "qt/questions/QtPageQuestions.h"

#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <optional>
#include <string>

class QtAwaited;
class QtLeaving;
class QtPreviewBar;
class QWebEngineFullScreenRequest;
class QWebEngineLoadingInfo;
class QWebEngineView;

/// One page view on Qt WebEngine. The engine's page comes into being when its first navigation starts, its widget
/// when it is first shown; a parked view's page stays hidden from the engine and goes on running.
class QtBrowserView final : public QObject,
                            public BrowserView,
                            private QtSchedule::View,
                            private QtNewWindows::Taker,
                            private PageDocument {
public:
    /// Both outlive the view.
    QtBrowserView(std::int16_t index, BrowserViewEvents& events, const QtViewServices& services, Privacy privacy);
    ~QtBrowserView() override;

    Outcome Navigate(TextView address) override;
    Outcome Stop() override;
    Outcome Refresh() override;
    /// Ends the document, whether or not its server has another, and loads its address anew.
    void Renew();
    Outcome GoBack() override;
    Outcome GoForward() override;
    Outcome GoHome() override;
    Outcome ExecWB(BrowserCommand command) override;
    [[nodiscard]] Text LocationName() const override;
    [[nodiscard]] PageDocument* Document() override;
    [[nodiscard]] int ZoomLevel() const override { return m_zoom; }
    [[nodiscard]] PageTools* Tools() override { return m_questions ? &m_questions->tools : nullptr; }
    [[nodiscard]] PageLife* Life() override { return m_life.get(); }
    [[nodiscard]] PageSecurity Security() const override;
    [[nodiscard]] bool Busy() const override { return m_loading; }
    [[nodiscard]] Text LocationURL() const override;
    [[nodiscard]] bool Blank() const override;
    [[nodiscard]] bool MayHold() const override;
    void AskToLeave(LeaveReason why, std::function<void(bool holds)> told) override;
    void AskUserToLeave(std::function<void(bool leaves)> answered) override;
    [[nodiscard]] std::string History() const override;
    Outcome Restore(const std::string& history, TextView address) override;
    Outcome RestoreLater(const std::string& history, TextView address) override;
    [[nodiscard]] bool Audible() const override { return m_page && m_page->recentlyAudible(); }
    [[nodiscard]] bool Muted() const override { return m_muted; }
    void SetMuted(bool muted) override;
    void SetVisible(bool visible) override;
    void SetTabStop(bool tabStop) override;
    void Move(const Rect& place) override;
    void MoveLeft(Twips left) override;
    void BringToFront() override;
    void SetFocus() override;

    // For the engine.
    /// Lays the widget out, because bars beside the page came or went.
    void LayWidget();
    /// Silences the page or not, as the tab and the load switches have it.
    void ApplyMute();
    [[nodiscard]] QIcon Icon() const;
    [[nodiscard]] QtPage* Page() const { return m_page; }
    [[nodiscard]] ::Privacy Privacy() const { return m_privacy; }
    /// What the page asks for, and what covers it; nothing while there is no page.
    [[nodiscard]] QtPageQuestions* Questions() const { return m_questions.get(); }
    [[nodiscard]] QWebEngineView* Widget() const { return m_widget; }
    /// What covers the page because its process has died; nothing while it lives.
    [[nodiscard]] QtCrashPage* CrashPage() const { return m_questions ? m_questions->crashes.Shown() : nullptr; }

private:
    // Its turns.
    void StartNavigation() override;
    void Show() override;
    void Hide() override;

    // What was opened from another view.
    void TakeIn(QWebEngineNewWindowRequest& request, bool byPerson) override;
    void TakePreview(const QByteArray& pdf, const QString& name) override;

    // The document.
    Outcome Zoom(int level) override;

    void ApplyZoom();
    bool FillHistory(const QByteArray& bytes);
    void GoSilently(const QUrl& url);
    void BeginTries(const QtAddress& target);
    void DropFallback();
    void OnFailure(const QWebEngineLoadingInfo& info, bool shown);
    [[nodiscard]] bool IsFirstTry(const QWebEngineLoadingInfo& info) const;
    void MakePage();
    void MakeWidget();
    void MakeQuestions();
    void MakeLife();
    void AskForMenu(QPoint at);
    void ShowMenu(const PageContext& context, QPoint at);
    void Release();
    void ConnectLoading();
    void ConnectPage();
    [[nodiscard]] bool AwaitsFirst() const;
    void NoteVisit(const QUrl& url);
    void OnLoadStarted();
    void OnLoadFinished(bool ok);
    void ReportUnbegun();
    void OnOverdue();
    void OnDocumentBegan(bool isError);
    void OnDocumentKnown(bool isError);
    void OnAddressChanged(const QUrl& url);
    void OnLoadingChanged(const QWebEngineLoadingInfo& info);
    void TellEnd(const QWebEngineLoadingInfo& info);
    void OnPrintRequested();
    void PrintIfShown();
    void OnFullScreen(QWebEngineFullScreenRequest request);
    void OpenPopup(TextView address);
    void PreviewShown();
    void PrintPreview();
    void ShowPreview(const QByteArray& pdf);
    [[nodiscard]] bool ShowsPreview() const;
    [[nodiscard]] Text NameOf(const QString& title) const;
    void FollowPreview();
    void DropPreviewBar();
    void RaiseBars();
    void WireQuestions();
    void ShowQuestion();
    void OnRendererGone();
    void ReportHistory();

    const std::int16_t m_index;
    BrowserViewEvents& m_events;
    const QtViewServices m_services;
    const ::Privacy m_privacy;
    QPointer<QtPage> m_page;
    QPointer<QWebEngineView> m_widget;
    QPointer<QtAwaited> m_awaited;                ///< the page's
    QPointer<QtLeaving> m_leaving;                ///< likewise
    std::unique_ptr<QtPageQuestions> m_questions; ///< as long as there is a page
    std::unique_ptr<QtPageLife> m_life;           ///< likewise
    std::optional<QtAddress> m_pending;           ///< asked for, not started
    QByteArray m_pendingHistory;                  ///< where the page that is asked for has been
    QUrl m_requested;                             ///< the address of the last navigation from outside the page
    QUrl m_fallback;                              ///< where to go when that cannot connect
    mutable QUrl m_told;                          ///< the address that was told last
    mutable Text m_toldText;                      ///< as it was told
    Text m_fallbackOf;                            ///< what cannot be connected to then
    QUrl m_shown;                                 ///< the address of the document shown, whatever is to come
    std::shared_ptr<const QByteArray> m_preview;  ///< the PDF that the view was opened for
    QPointer<QtPreviewBar> m_previewBar;          ///< above it, while it is shown
    Connections m_previewListening;               ///< to that
    QRect m_place;
    int m_zoom = 2;
    bool m_committed = false;
    bool m_loading = false;
    bool m_awaitsEnd = false;   ///< how the load has ended was not told yet
    bool m_failed = false;      ///< what is shown is an error page
    bool m_known = false;       ///< whether it is one is known
    bool m_newDocument = false; ///< the next address is that of another document
    bool m_hidesErrors = false; ///< the engine may not show how a load fails
    bool m_opened = false;      ///< another page has opened it, and may have filled it
    bool m_later = false;       ///< what is pending waits until somebody looks
    bool m_late = false;        ///< the first page is overdue
    bool m_muted = false;
    bool m_printsLater = false;   ///< as soon as the page is shown
    bool m_previewsLater = false; ///< as soon as the page is there
    bool m_tabStop = false;
    bool m_wantsFocus = false;
    bool m_canGoBack = false;
    bool m_canGoForward = false;
};
