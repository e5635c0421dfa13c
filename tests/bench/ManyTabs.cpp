// What a tab costs the shell itself when many are open: time to open one, memory, and what a change of one holds the
// window up for until it is written down. Real views, strip and files; no page of the engine exists. The exit code is 1
// when a thousand tabs cost more than they may.
#include "qt/base/Strings.h"
#include "qt/desktop/DiskSessionFiles.h"
#include "qt/desktop/InstanceProfile.h"
#include "qt/engine/Engine.h"
#include "qt/strip/TabStripView.h"
#include "qt/window/StatusBarView.h"
#include "tests/engine/FakeEngineHost.h"
#include "tests/fakes/FakeSurroundings.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QApplication>
#include <QWebEngineView>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <malloc.h>

namespace tessa::qt {

namespace {

constexpr double kMostOpening = 50;   // microseconds a tab
constexpr double kMostMemory = 20000; // bytes a tab
constexpr double kMostWriting = 2000; // microseconds a change
constexpr int kRounds = 20;

using Clock = std::chrono::steady_clock;

double MicrosecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

/// A window before the engine has started.
class Shell : FakeSurroundings {
public:
    Shell() {
        main.Sessions().Schedule.ConnectForLife([] {});
        strip.resize(1000, 24);
        main.Form_Load(u"about:blank");
    }
    ~Shell() { main.Form_Unload(); }

    /// Opens tabs as a group does, and has them know their titles.
    void Open(int count) {
        for (int i = 0; i < count; ++i) {
            auto* view = main.GetNewBrowser(InFront::Yes);
            ResumeNext(view->Navigate(u"https://www.news.example/section/today/article-" + Decimal(++m_last) +
                                      u"?from=front&page=2"));
            main.pcPage.SetCaption(main.pcPage.SelectedItem(), u"An article of some length about number " + Decimal(i));
        }
        QApplication::processEvents();
    }
    /// Another tab each time goes to another address.
    double ChangeAndWrite() {
        auto* tab = main.pcPage.FindAt(2 + static_cast<std::size_t>(m_changes * 7) % (main.pcPage.Count() - 1));
        ResumeNext(main.Tabs().OpenView(tab->Tag)->Control->Navigate(u"https://a.example/" + Decimal(++m_changes)));
        const auto start = Clock::now();
        main.Sessions().Write();
        return MicrosecondsSince(start);
    }

    TemporaryFolder folder;
    DiskSessionFiles ownSessions{ToQt(folder.PathText("sessions"))};
    InstanceProfile ownProfile{{}, {}};
    QWidget pageArea;
    FakeEngineHost host;
    Engine engine{&pageArea, ownProfile, host};
    frmMain main{Platform(engine, {.sessions = &ownSessions})};
    TabStripView strip{main.pcPage};

private:
    int m_last = 0;
    int m_changes = 0;
};

struct Cost {
    double opening, memory, writing;
};

Cost Measure(int tabs) {
    Shell shell;
    shell.Open(10);
    shell.ChangeAndWrite();
    const auto before = ::mallinfo2().uordblks;
    const auto start = Clock::now();
    shell.Open(tabs);
    const double opening = MicrosecondsSince(start) / tabs;
    const double memory = static_cast<double>(::mallinfo2().uordblks - before) / tabs;
    std::vector<double> writes;
    for (int i = 0; i < kRounds; ++i) writes.push_back(shell.ChangeAndWrite());
    std::ranges::sort(writes);
    return {opening, memory, writes[kRounds / 2]};
}

} // namespace

} // namespace tessa::qt

int main(int argc, char** argv) {
    using namespace tessa::qt;
    const QApplication application(argc, argv);
    std::puts("tabs   open, us/tab   memory, bytes/tab   write a change, us");
    bool met = true;
    for (const int tabs : {10, 100, 1000, 4000}) {
        const Cost cost = Measure(tabs);
        std::printf("%4d   %11.1f   %17.0f   %18.0f\n", tabs, cost.opening, cost.memory, cost.writing);
        if (tabs == 1000)
            met = cost.opening <= kMostOpening && cost.memory <= kMostMemory && cost.writing <= kMostWriting;
    }
    std::puts(met ? "A thousand tabs cost what they may." : "A thousand tabs cost more than they may.");
    return met ? 0 : 1;
}
