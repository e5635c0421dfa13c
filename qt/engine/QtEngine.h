#pragma once
#include "pages/MediaTarget.h"
#include "pages/SitePermissions.h"
#include "platform/BrowserView.h"
#include "qt/engine/QtEngineHost.h"
#include "qt/engine/QtNewWindows.h"
#include "qt/engine/QtOutside.h"
#include "qt/engine/QtPageSignals.h"
#include "qt/engine/QtProfiles.h"
#include "qt/engine/QtSchedule.h"
#include "qt/engine/QtViewServices.h"
#include "qt/page/QtPageOutput.h"
#include "qt/page/QtPersonInput.h"

#include <QIcon>
#include <QStringList>
#include <map>
#include <memory>

class QWebEnginePage;

namespace tessa::qt {

class QtBrowserView;

/// The page engine: makes the views, and answers what is asked of all of them. Nothing of the engine exists before
/// `Start()`, so a process that only hands its command line over never loads it.
class QtEngine final : public QObject, public BrowserViewFactory {
public:
    /// Pages are children of `pageArea`. What they store goes into `ownProfile`, which is taken with the first of them.
    /// It outlives the engine, and so does `host`.
    QtEngine(QWidget* pageArea, QtInstanceProfile& ownProfile, QtEngineHost& host);
    ~QtEngine() override;

    std::unique_ptr<BrowserView> Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) override;
    /// From now on views may load. Called once the window is on the screen.
    void Start();
    /// Ends the pages' profiles; no view may be left. Called before the application ends.
    void Shutdown();

    [[nodiscard]] QtProfiles& Profiles() { return m_profiles; }
    [[nodiscard]] QtSchedule& Schedule() { return m_schedule; }
    [[nodiscard]] QtPageSignals& Told() { return m_told; }
    [[nodiscard]] QtPageOutput& Output() { return m_output; }
    /// The page that fills the screen.
    [[nodiscard]] QtPageFullScreen& FullScreen() { return m_fullScreen; }

    /// The view shown, and its page; nothing when there is none yet.
    [[nodiscard]] QtBrowserView* Front() const { return Find(m_schedule.Shown()); }
    [[nodiscard]] QtPage* FrontPage() const;
    /// The bars beside the page have changed; lays the view in front out anew.
    void Relayout();
    /// The page that the keys for play and pause are for.
    [[nodiscard]] QtPage* MediaPage();
    /// The view of a page; nothing for a page of nobody's.
    [[nodiscard]] QtBrowserView* ViewOf(const QWebEnginePage* page) const;
    /// How many engine pages exist.
    [[nodiscard]] std::size_t PageCount() const;
    /// The icon of the page of a view; a null icon when it has none.
    [[nodiscard]] QIcon Icon(std::int32_t index) const;

    /// Puts the load switches into effect for all pages, present and future.
    void SetLoadOptions(const QtLoadOptions& options);
    /// A decision was forgotten: pages of that site ask again.
    void ForgetDecision(const SiteDecision& forgotten);
    /// What pages may see and hear of their users: in words, a sentence for each page.
    [[nodiscard]] QStringList Captures() const;
    /// Loads these pages again, which ends it.
    void StopCaptures();

private:
    [[nodiscard]] QtBrowserView* Find(std::int32_t index) const;

    QtOutside m_outside;
    QtProfiles m_profiles;
    QtSchedule m_schedule;
    QtNewWindows m_newWindows;
    QtPageSignals m_told;
    QtPageOutput m_output;
    QtPersonInput m_personInput;
    QtPageFullScreen m_fullScreen;
    QtViewServices m_services;
    std::map<std::int32_t, QtBrowserView*> m_views;
    MediaTarget m_media;
};

} // namespace tessa::qt
