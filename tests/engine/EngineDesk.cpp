#include "tests/engine/EngineDesk.h"

#include "qt/base/AnswerGuard.h"
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "settings/HistorySettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QWebEngineView>
#include <memory>

namespace tessa::qt {

namespace {
constexpr qint64 kPatience = 60000;
}

bool WaitUntil(const std::function<bool()>& condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > kPatience) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
        QTest::qWait(1);
    }
    return true;
}

bool TakesAnswers(const QWidget& question) {
    const auto* guard = question.findChild<AnswerGuard*>();
    return guard && guard->Ready();
}

bool WaitForAnswers(const QWidget& question) {
    return WaitUntil([&] { return TakesAnswers(question); });
}

void Settle(Engine&, QWebEnginePage* page) {
    // The answer may come when nobody waits for it any more.
    const auto answered = std::make_shared<bool>(false);
    page->runJavaScript(QStringLiteral("1"), [answered](const QVariant&) { *answered = true; });
    EXPECT_TRUE(WaitUntil([&] { return *answered; }));
}

void EventRecorder::StatusTextChange(std::int16_t, TextView Text) { statusTexts << ToQt(Text); }

void EventRecorder::CommandStateChange(std::int16_t, HistoryCommand Command, bool Enable) {
    const QString name = Command == HistoryCommand::NavigateBack ? QStringLiteral("back") : QStringLiteral("forward");
    lines << name + (Enable ? u'+' : u'-');
}

void EventRecorder::DownloadBegin(std::int16_t) { lines << QStringLiteral("S"); }

void EventRecorder::DownloadComplete(std::int16_t) { lines << QStringLiteral("F"); }

void EventRecorder::TitleChange(std::int16_t, TextView Text) { lines << QStringLiteral("T:") + ToQt(Text); }

void EventRecorder::BeforeNavigate2(std::int16_t, PageLevel pDisp, TextView URL) {
    Add(QStringLiteral("A"), pDisp, URL);
}

BrowserView* EventRecorder::NewWindow2(std::int16_t, NewWindowPlace Place) {
    lines << (Place == NewWindowPlace::AsSet ? QStringLiteral("W") : QStringLiteral("W:other"));
    return supplyView ? supplyView() : nullptr;
}

void EventRecorder::NavigateComplete2(std::int16_t, PageLevel pDisp, TextView URL) {
    Add(QStringLiteral("N"), pDisp, URL);
}

void EventRecorder::DocumentComplete(std::int16_t, PageLevel pDisp, TextView URL) {
    Add(QStringLiteral("D"), pDisp, URL);
}

void EventRecorder::NavigationDropped(std::int16_t) { lines << QStringLiteral("E"); }

void EventRecorder::AttentionChange(std::int16_t, bool Asks) {
    lines << (Asks ? QStringLiteral("asks+") : QStringLiteral("asks-"));
}

void EventRecorder::ContextMenu(std::int16_t, const PageContext& Context) { menu = Context; }

void EventRecorder::WindowClosing(std::int16_t) { lines << QStringLiteral("X"); }

void EventRecorder::Add(const QString& kind, PageLevel level, TextView URL) {
    const QUrl url(ToQt(URL));
    const QString place =
        url.scheme() == u"http" ? url.path() + (url.hasFragment() ? u'#' + url.fragment() : QString()) : url.toString();
    lines << kind + (level == PageLevel::Frame ? QStringLiteral("frame:") : QStringLiteral(":")) + place;
}

EngineView::EngineView(const QString& profileFolder)
    : ownProfile(profileFolder, profileFolder), engine(&window, ownProfile, host) {
    window.resize(800, 600);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    Replace(Privacy::Ordinary);
    engine.Start();
}

void EngineView::Replace(Privacy privacy) {
    view.reset();
    view = engine.Create(1, events, privacy);
    view->Move({{0}, {0}, {800}, {600}});
    view->BringToFront();
}

EngineView::~EngineView() {
    view.reset();
    engine.Shutdown();
}

PageView& EngineView::Real() const { return static_cast<PageView&>(*view); }

void EngineView::Navigate(const QString& address) { EXPECT_EQ(view->Navigate(FromQt(address)), Outcome::Done); }

void EngineView::Load(const QString& address) {
    const auto before = events.Count(QStringLiteral("F"));
    Navigate(address);
    ASSERT_TRUE(WaitUntil([&] { return events.Count(QStringLiteral("F")) > before && !view->Busy(); }));
    Settle(engine, Real().Page());
}

QString EngineView::Script(const QString& source) {
    QVariant result;
    bool answered = false;
    Real().Page()->runJavaScript(source, [&](const QVariant& value) {
        result = value;
        answered = true;
    });
    EXPECT_TRUE(WaitUntil([&] { return answered; }));
    return result.toString();
}

QPoint EngineView::MiddleOf(const QString& elementId) {
    const QStringList middle = Script(QStringLiteral("var r = document.getElementById('%1').getBoundingClientRect();"
                                                     "(r.left + r.width / 2) + ' ' + (r.top + r.height / 2)")
                                          .arg(elementId))
                                   .split(u' ');
    return {static_cast<int>(middle.value(0).toDouble()), static_cast<int>(middle.value(1).toDouble())};
}

QWidget* EngineView::PointerTarget() const {
    auto* widget = Real().Widget();
    return widget->focusProxy() ? widget->focusProxy() : widget;
}

// A page takes the pointer once its first picture is on the screen.
void EngineView::WaitForPicture() {
    Script(QStringLiteral("requestAnimationFrame(() => requestAnimationFrame(() => { window.painted = 'yes'; })); 1"));
    EXPECT_TRUE(WaitUntil([this] { return Script(QStringLiteral("window.painted")) == u"yes"; }));
}

void EngineView::ClickOn(const QString& elementId, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    WaitForPicture();
    QTest::mouseClick(PointerTarget(), button, modifiers, MiddleOf(elementId));
}

void EngineView::PointAt(const QString& elementId) {
    WaitForPicture();
    QTest::mouseMove(PointerTarget(), MiddleOf(elementId));
}

std::unique_ptr<BrowserView> SeenViews::Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) {
    auto view = m_engine.Create(Index, events, privacy);
    if (view) m_made[Index] = static_cast<PageView*>(view.get());
    return view;
}

EngineDesk::EngineDesk(const OwnParts& own) {
    window.resize(1000, 700);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    // Scripts that read pages would run in all of them.
    ResumeNext(HistorySettings(settings).Nothing.Set(true));
    main = std::make_unique<frmMain>(Platform(views, own));
    main->Form_Load(u"about:blank");
    main->Form_Activate();
    engine.Start();
}

EngineDesk::~EngineDesk() {
    main->Form_Unload();
    main.reset();
    engine.Shutdown();
}

void EngineDesk::Open(const std::vector<QString>& addresses) {
    for (const auto& address : addresses) {
        if (auto* view = main->GetNewBrowser(InFront::Yes)) ResumeNext(view->Navigate(FromQt(address)));
    }
}

} // namespace tessa::qt
