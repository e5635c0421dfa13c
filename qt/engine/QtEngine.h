#pragma once
#include "base/Signal.h"
#include "base/os/IdleCores.h"
#include "pages/Certificates.h"
#include "pages/ExternalSchemes.h"
#include "pages/MediaTarget.h"
#include "pages/SitePermissions.h"
#include "platform/BrowserView.h"
#include "qt/engine/QtLoadOptions.h"
#include "qt/page/QtPageFullScreen.h"
#include "qt/page/QtPageOutput.h"
#include "qt/page/QtPersonInput.h"
#include "tabs/MemoryShortage.h"
#include "tabs/NavigationQueue.h"

#include <QElapsedTimer>
#include <QIcon>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class QWebEnginePage;
class QWebEngineProfile;
class QtBrowserView;
class QtDialogScheme;
class QtInstanceProfile;
class QtPage;
class QtProfile;
class QtStartPage;

/// The page engine: makes the views, and decides when their pages come into being. Nothing of the engine exists
/// before `Start()`, so a process that only hands its command line over never loads it. What is asked of the views
/// takes place at the next turn of the event loop: of several navigations of one view only the last, of several
/// views brought to the front only the last.
class QtEngine final : public QObject, public BrowserViewFactory {
public:
    /// Pages are children of `pageArea`. What they store goes into `ownProfile`, which is taken with the first of them
    /// and outlives the engine.
    QtEngine(QWidget* pageArea, QtInstanceProfile& ownProfile);
    ~QtEngine() override;

    std::unique_ptr<BrowserView> Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) override;
    /// From now on views may load. Called once the window is on the screen.
    void Start();
    /// Ends the pages' profile; no view may be left. Called before the application ends.
    void Shutdown();

    /// The icon of the page of a view; a null icon when it has none.
    [[nodiscard]] QIcon Icon(std::int32_t index) const;
    /// Another view is shown than before.
    Signal<void()> FrontChanged;
    /// A page's icon has changed.
    Signal<void(std::int32_t index)> IconChanged;
    /// The pages' profile has come into being; that of private pages, which ends with the last of them.
    Signal<void(QWebEngineProfile&)> ProfileMade;
    Signal<void(QWebEngineProfile&)> PrivateProfileMade;
    /// A page that is not private, or a frame of it, goes to an address.
    Signal<void(const QUrl&)> Visited;
    /// The address of the home page; empty, or without a function, for the program's own.
    std::function<Text()> HomeAddress;
    /// What sites may do for good. Outlives the views; nothing to ask every time.
    SitePermissions* Permissions = nullptr;
    /// A decision was forgotten: pages of that site ask again.
    void ForgetDecision(const SiteDecision& forgotten);
    /// What pages may see and hear of their users has changed.
    Signal<void()> CapturesChanged;
    /// Says something in passing, in the status bar.
    Signal<void(const QString&)> Notice;
    /// In words, a sentence for each page.
    [[nodiscard]] QStringList Captures() const;
    /// Loads these pages again, which ends it.
    void StopCaptures();
    /// A page's menu is being asked for at a point of the screen: at the pointer, or at what has the keyboard in the
    /// page. Nothing when that is over.
    Signal<void(std::optional<QPoint>)> MenuPlace;
    /// For the menus of pages, see `QtPageTools`.
    Signal<void(QtPage&, const QUrl&, const Text& path)> SaveAddress;
    Signal<void(QtPage&)> ShowInspector;
    /// Makes the home page, in UTF-8, whenever it is loaded.
    std::function<std::string()> StartPage;
    /// The user has followed a link of the home page that is for the program and not for the engine.
    Signal<void(const QUrl&)> StartLink;
    /// Whether pages wait for their turn to load.
    [[nodiscard]] bool PagesWait() const { return m_queue.Waiting() > 0; }
    /// How short memory is from now on.
    void SetShortage(Shortage shortage);
    /// How many engine pages exist.
    [[nodiscard]] std::size_t PageCount() const;

    /// The view shown, and its page; nothing when there is none yet.
    [[nodiscard]] QtBrowserView* Front() const { return Find(m_shown); }
    [[nodiscard]] QtPage* FrontPage() const;
    /// The page that the keys for play and pause are for.
    [[nodiscard]] QtPage* MediaPage();
    /// The view of a page; nothing for a page of nobody's.
    [[nodiscard]] QtBrowserView* ViewOf(const QWebEnginePage* page) const;
    /// Puts the load switches into effect for all pages, present and future.
    void SetLoadOptions(const QtLoadOptions& options);
    /// Bars beside the page: given the whole page area, places them and answers what is left for the page.
    std::function<QRect(const QRect& whole)> LayBars;
    /// The bars have changed; lays the view in front out anew.
    void Relayout();

    // For the views.
    void ReportCaptures() const { CapturesChanged(); }
    [[nodiscard]] QRect PageRect(const QRect& whole) const { return LayBars ? LayBars(whole) : whole; }
    /// The exceptions for refused certificates. Those of private views end with the last of them.
    [[nodiscard]] AcceptedCertificates& Accepted(Privacy privacy) { return AnswersFor(privacy).certificates; }
    /// What the user has answered about addresses for other programs; of private views likewise.
    [[nodiscard]] ExternalSchemes& External(Privacy privacy = Privacy::Ordinary) {
        return AnswersFor(privacy).programs;
    }
    [[nodiscard]] QtPageOutput& Output() { return m_output; }
    /// The page that fills the screen.
    [[nodiscard]] QtPageFullScreen& FullScreen() { return m_fullScreen; }
    void Register(std::int32_t index, QtBrowserView* view);
    void Forget(std::int32_t index);
    void RequestNavigation(std::int32_t index);
    void EndNavigation(std::int32_t index);
    /// Something of the page that the view loads has come.
    void NoteSign(std::int32_t index);
    void BringToFront(std::int32_t index);
    /// Asks for a turn: the waiting work is done once, at the next turn of the event loop.
    void Schedule();
    /// Hands an address to the desktop's program for it; not before `Start()`, because a process that only hands its
    /// command line over leaves that to the other.
    Outcome OpenOutside(const QUrl& url);
    [[nodiscard]] QWidget* PageArea() const { return m_pageArea; }
    [[nodiscard]] QWebEngineProfile* Profile(Privacy privacy = Privacy::Ordinary);
    [[nodiscard]] QtDialogScheme& DialogScheme(Privacy privacy);
    /// What the program itself shows as pages.
    [[nodiscard]] QtStartPage& OwnPages(Privacy privacy);
    [[nodiscard]] QtPage* MakePage(Privacy privacy);
    /// A view is done with its page, which ends as soon as it can.
    void End(QtPage& page);
    [[nodiscard]] bool PlaysSounds() const { return m_loadOptions.sounds; }
    /// Marks the lines with which our script in the pages reports frames; new for every run.
    [[nodiscard]] const QString& Token() const { return m_token; }

private:
    /// What the user has answered for the run.
    struct Answers {
        AcceptedCertificates certificates;
        ExternalSchemes programs;
    };
    [[nodiscard]] Answers& AnswersFor(Privacy privacy) {
        return privacy == Privacy::Private ? m_privateAnswers : m_answers;
    }
    void Turn();
    void LookAtMachine(NavigationQueue::Time now);
    void ShowFront();
    [[nodiscard]] QtBrowserView* Find(std::int32_t index) const;
    std::unique_ptr<QtProfile> MakeProfile(const QString& folder, const QString& cacheFolder);
    QWebEngineProfile* PrivateProfile();
    void OnPrivatePageGone();
    [[nodiscard]] bool HasPrivateView() const;

    QPointer<QWidget> m_pageArea;
    QtInstanceProfile& m_ownProfile;
    QString m_token;
    std::unique_ptr<QtProfile> m_profile, m_private;
    int m_privatePages = 0;
    std::vector<QPointer<QtPage>> m_ending; ///< pages that were there last when theirs ended
    std::map<std::int32_t, QtBrowserView*> m_views;
    NavigationQueue m_queue;
    IdleCores m_idle;
    Shortage m_shortage = Shortage::None;
    NavigationQueue::Time m_looked{0}; ///< when the machine was last looked at
    std::vector<QUrl> m_outside;       ///< to be handed to the desktop once the engine starts
    QTimer m_turn;
    QElapsedTimer m_clock;
    QtPageOutput m_output;
    QtPersonInput m_personInput;
    QtPageFullScreen m_fullScreen;
    QtLoadOptions m_loadOptions;
    Answers m_answers, m_privateAnswers;
    MediaTarget m_media;
    std::int32_t m_front = 0;
    std::int32_t m_shown = 0;
    bool m_started = false;
};
