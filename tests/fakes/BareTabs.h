#pragma once
#include "tabs/BrowserEvents.h"
#include "tabs/TabGroups.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeViews.h"

namespace tessa {

/// Tabs and their views without a main window around them, for what works on these alone. The command bar is empty.
struct BareTabs {
    void StartWithTabs(int count) {
        ResumeNext(tabs.PrepareFirstTab() ? Outcome::Done : Outcome::Failed);
        for (int i = 2; i <= count; ++i) tabs.GetNewBrowser(InFront::Yes);
        pcPage.Select(pcPage.FindAt(1));
    }
    void Close(std::int32_t index) { tabs.CloseBrowserTab(index); }
    void MoveTab(std::size_t from, std::size_t to) { pcPage.Move(pcPage.FindAt(from), to); }

    FakeMessages messages;
    FakeViews views;
    TabStrip pcPage;
    CommandBar actBar;
    StatusBar sbStatus;
    BrowserEvents events{tabs, Browser};
    ViewArray Browser{views, events};
    TabSet tabs{pcPage, Browser, actBar, sbStatus, messages};
    TabGroups groups{tabs, pcPage, Browser};
};

} // namespace tessa
