#include "qt/script/AddressWalk.h"

#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"

#include <QDeadlineTimer>
#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace tessa::qt {

namespace {
constexpr std::chrono::milliseconds kLookingAtPage{50};
}

/// A page that nobody sees. Whatever it wants of its user, there is nobody.
class AddressWalk::Page final : private BrowserViewEvents {
public:
    Page(Engine& engine, std::int16_t index)
        : m_engine(engine), m_index(index), m_view(engine.Create(index, *this, Privacy::Ordinary)) {
        m_view->SetMuted(true);
    }

    void Load(TextView address) { ResumeNext(m_view->Navigate(address)); }
    [[nodiscard]] bool Loads() const { return m_view->Progress() == PageProgress::Loading; }
    /// Whether it is held up by an answer that nobody gives.
    [[nodiscard]] bool Asks() const {
        const auto* questions = m_engine.Find(m_index)->Questions();
        return questions && !questions->covers.Empty();
    }
    /// Whether there is a page, and no error's.
    [[nodiscard]] bool Shows() const {
        const PageSecurity security = m_view->Security();
        return !Asks() && security != PageSecurity::None && security != PageSecurity::Awaited;
    }
    [[nodiscard]] std::uint32_t Number() const { return static_cast<std::uint32_t>(std::int32_t{m_index}); }
    [[nodiscard]] ScriptTab Describe() const {
        return {.number = Number(),
                .title = ToUtf8(m_view->LocationName()),
                .address = ToUtf8(m_view->LocationURL()),
                .group{},
                .state{}};
    }

private:
    void StatusTextChange(std::int16_t, TextView) override {}
    void CommandStateChange(std::int16_t, HistoryCommand, bool) override {}
    void DownloadBegin(std::int16_t) override {}
    void DownloadComplete(std::int16_t) override {}
    void TitleChange(std::int16_t, TextView) override {}
    void BeforeNavigate2(std::int16_t, PageLevel, TextView) override {}
    BrowserView* NewWindow2(std::int16_t, NewWindowPlace) override { return nullptr; }
    void NavigateComplete2(std::int16_t, PageLevel, TextView) override {}
    void DocumentComplete(std::int16_t, PageLevel, TextView) override {}
    void NavigationOverdue(std::int16_t) override {}
    void SecurityChange(std::int16_t) override {}
    void NavigationDropped(std::int16_t) override {}
    void AttentionChange(std::int16_t, bool) override {}
    void ContextMenu(std::int16_t, const PageContext&) override {}
    void WindowClosing(std::int16_t) override {}
    void SoundChange(std::int16_t) override {}

    Engine& m_engine;
    const std::int16_t m_index;
    std::unique_ptr<BrowserView> m_view;
};

/// One way through some addresses.
struct AddressWalk::Walk {
    std::vector<Text> addresses;
    PageSteps steps;
    std::size_t at = 0;
    std::vector<std::string> left{};
    std::unique_ptr<Page> page{};
    QDeadlineTimer patience{};
    QTimer look{};
};

AddressWalk::AddressWalk(Engine& engine, PageReads& reads, int patience)
    : m_engine(engine), m_reads(reads), m_patience(patience) {}

AddressWalk::~AddressWalk() = default;

void AddressWalk::Shutdown() { m_walks.clear(); }

// Tabs have numbers from 1; what no tab shows is counted the other way.
std::int16_t AddressWalk::FreeIndex() const {
    std::int16_t index = -1;
    while (m_engine.Find(index) && index > std::numeric_limits<std::int16_t>::min()) --index;
    return index;
}

void AddressWalk::Go(std::vector<Text> addresses, PageSteps steps) {
    auto& walk = *m_walks.emplace_back(new Walk{std::move(addresses), std::move(steps)});
    walk.look.setInterval(kLookingAtPage);
    walk.look.callOnTimeout(this, [this, &walk] { Look(walk); });
    Next(walk);
}

void AddressWalk::Next(Walk& walk) {
    if (walk.at == walk.addresses.size() || !walk.steps.GoOn()) return End(walk);
    if (walk.steps.progress) walk.steps.progress(walk.at, walk.addresses.size());
    walk.page = std::make_unique<Page>(m_engine, FreeIndex());
    walk.page->Load(walk.addresses[walk.at]);
    walk.patience.setRemainingTime(m_patience);
    walk.look.start();
}

void AddressWalk::Look(Walk& walk) {
    const bool stops = !walk.steps.GoOn();
    if (!stops && walk.page->Loads() && !walk.page->Asks() && !walk.patience.hasExpired()) return;
    walk.look.stop();
    if (stops) return Leave(walk);
    // The engine brings the title, and whether it is an error's page, a little later.
    m_reads.Settle({walk.page->Number()}, [this, guard = QPointer<QTimer>(&walk.look), &walk] {
        if (guard) Visit(walk);
    });
}

// A page that shows nothing that was asked for, as one that is saved to a file, is none.
void AddressWalk::Visit(Walk& walk) {
    if (!walk.steps.GoOn()) return Leave(walk);
    if (!walk.page->Shows()) return LeaveOut(walk);
    // It may run events, in which all of this ends.
    const PageSteps::Step step = walk.steps.step;
    step(walk.page->Describe(), [this, guard = QPointer<QTimer>(&walk.look), &walk] {
        if (guard) Leave(walk);
    });
}

void AddressWalk::LeaveOut(Walk& walk) {
    walk.left.push_back(ToUtf8(walk.addresses[walk.at]));
    Leave(walk);
}

// Later: the page itself may be telling that it is done.
void AddressWalk::Leave(Walk& walk) {
    QMetaObject::invokeMethod(
        this,
        [this, guard = QPointer<QTimer>(&walk.look), &walk] {
            if (!guard) return;
            walk.page.reset();
            ++walk.at;
            Next(walk);
        },
        Qt::QueuedConnection);
}

void AddressWalk::End(Walk& walk) {
    const auto found = std::ranges::find(m_walks, &walk, &std::unique_ptr<Walk>::get);
    const std::unique_ptr<Walk> ended = std::move(*found);
    m_walks.erase(found);
    ended->steps.ended(ended->left);
}

} // namespace tessa::qt
