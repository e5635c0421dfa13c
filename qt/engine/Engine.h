#pragma once
#include "pages/MediaTarget.h"
#include "pages/SitePermissions.h"
#include "platform/BrowserView.h"
#include "qt/engine/EngineHost.h"
#include "qt/engine/NewWindows.h"
#include "qt/engine/OutsidePrograms.h"
#include "qt/engine/PageSignals.h"
#include "qt/engine/Profiles.h"
#include "qt/engine/Schedule.h"
#include "qt/engine/ViewServices.h"
#include "qt/page/PageOutput.h"
#include "qt/page/PersonInput.h"

#include <QIcon>
#include <QStringList>
#include <map>
#include <memory>

class QWebEnginePage;

namespace tessa::qt {

class PageView;

/// The page engine: makes the views, and answers what is asked of all of them. Nothing of the engine exists before
/// `Start()`, so a process that only hands its command line over never loads it.
class Engine final : public QObject, public BrowserViewFactory {
public:
    /// Pages are children of `pageArea`. What they store goes into `ownProfile`, which is taken with the first of them.
    /// It outlives the engine, and so does `host`.
    Engine(QWidget* pageArea, InstanceProfile& ownProfile, EngineHost& host);
    ~Engine() override;

    std::unique_ptr<BrowserView> Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) override;
    [[nodiscard]] bool PagesWait() const override { return m_schedule.PagesWait(); }
    /// From now on views may load. Called once the window is on the screen.
    void Start();
    /// Ends the pages' profiles; no view may be left. Called before the application ends. False when a page does not
    /// end: then the process has to end before the application does.
    bool Shutdown();

    [[nodiscard]] qt::Profiles& Profiles() { return m_profiles; }
    [[nodiscard]] qt::Schedule& Schedule() { return m_schedule; }
    [[nodiscard]] PageSignals& Told() { return m_told; }
    [[nodiscard]] NewWindows& Windows() { return m_newWindows; }
    [[nodiscard]] PageOutput& Output() { return m_output; }
    /// The page that fills the screen.
    [[nodiscard]] PageFullScreen& FullScreen() { return m_fullScreen; }

    /// The view shown, and its page; nothing when there is none yet.
    [[nodiscard]] PageView* Front() const { return Find(m_schedule.Shown()); }
    [[nodiscard]] WebPage* FrontPage() const;
    /// The bars beside the page have changed; lays the views anew that are shown.
    void Relayout();
    /// The page that the keys for play and pause are for.
    [[nodiscard]] WebPage* MediaPage();
    /// The view of that index; nothing when there is none.
    [[nodiscard]] PageView* Find(std::int32_t index) const;
    /// The view of a page; nothing for a page of nobody's.
    [[nodiscard]] PageView* ViewOf(const QWebEnginePage* page) const;
    /// How many engine pages exist.
    [[nodiscard]] std::size_t PageCount() const;
    /// The icon of the page of a view; a null icon when it has none.
    [[nodiscard]] QIcon Icon(std::int32_t index) const;

    /// Puts the load switches into effect for all pages, present and future.
    void SetLoadOptions(const LoadOptions& options);
    /// A decision was forgotten: pages of that site ask again.
    void ForgetDecision(const SiteDecision& forgotten);
    /// What pages may see and hear of their users: in words, a sentence for each page.
    [[nodiscard]] QStringList Captures() const;
    /// Loads these pages again, which ends it.
    void StopCaptures();

private:
    OutsidePrograms m_outside;
    qt::Profiles m_profiles;
    qt::Schedule m_schedule;
    NewWindows m_newWindows;
    PageSignals m_told;
    PageOutput m_output;
    PersonInput m_personInput;
    PageFullScreen m_fullScreen;
    ViewServices m_services;
    std::map<std::int32_t, PageView*> m_views;
    MediaTarget m_media;
};

} // namespace tessa::qt
