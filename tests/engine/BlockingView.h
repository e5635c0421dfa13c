#pragma once
#include "qt/blocking/BlockedPages.h"
#include "qt/blocking/ElementHiding.h"
#include "qt/blocking/EmptyAnswers.h"
#include "qt/engine/PageView.h"
#include "qt/engine/Requests.h"
#include "qt/page/WebPage.h"
#include "tests/engine/EngineDesk.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QWebEngineProfile>
#include <algorithm>

namespace tessa::qt {

/// A view on whose pages these rules count, as the user's own.
struct BlockingView {
    explicit BlockingView(const char* rules, std::vector<Text> lists = {}) {
        EXPECT_EQ(blocker.Shelf().KeepOwnRules(FromBytes(rules)), Outcome::Done);
        BlockingSettings(settings).Set({.on = true, .lists = std::move(lists), .listsChosen = true});
        for (auto* made : {&view.engine.Profiles().Made, &view.engine.Profiles().PrivateMade}) {
            made->ConnectForLife([this](QWebEngineProfile& profile) {
                profile.setUrlRequestInterceptor(&requests);
                hiding.Follow(profile);
                empty.Follow(profile);
            });
        }
        view.engine.Profiles().PageMade.ConnectForLife([this](WebPage& page) { pages.Follow(page); });
        view.engine.Windows().HoldAgainst(pages);
        blocker.Apply();
        EXPECT_TRUE(WaitUntil([this] { return blocker.Rules() != nullptr; }));
    }
    [[nodiscard]] QWebEnginePage* Page() const { return view.Real().Page(); }
    [[nodiscard]] int Count() const { return pages.Count(Page()); }
    /// Whether what was stopped on the page has that path.
    [[nodiscard]] bool Counts(const QString& path) const {
        return std::ranges::any_of(pages.On(Page()),
                                   [&](const BlockedRequest& each) { return each.address.path() == path; });
    }
    /// Waits until the page has that title.
    bool WaitTitle(const QString& title) {
        return WaitUntil([&] { return Page() && Page()->title() == title; });
    }

    FakeSettings settings;
    TemporaryFolder folder;
    Blocker blocker{settings, QString::fromStdString(folder.Path("blocking"))};
    BlockedPages pages{blocker};
    ElementHiding hiding{blocker};
    EmptyAnswers empty;
    Requests requests{[] { return ServiceTemplates(); }, &pages};
    EngineView view;
};

/// A page of which some is hidden by most rules here, and what is seen of it.
inline constexpr auto kHidingPage =
    "<title>page</title><body><div class=ad id=one>a</div><p class=words id=two>w</p><div id=box>b</div>"
    "<a href='http://ads.example/x' id=three>c</a>";
inline const QString kSeen =
    QStringLiteral("['one', 'two', 'box', 'three', 'late'].filter(id => { const e = document.getElementById(id); "
                   "return e && getComputedStyle(e).display !== 'none' }).join(' ')");

/// Waits for what is seen of that page.
inline void ExpectSeen(BlockingView& desk, const char* ids) {
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(kSeen).toStdString() == ids; }))
        << ids << ", not " << desk.view.Script(kSeen).toStdString();
}

} // namespace tessa::qt
