#pragma once
#include "qt/desktop/InstanceProfile.h"
#include "qt/engine/Engine.h"
#include "tests/engine/FakeEngineHost.h"
#include "tests/engine/LocalServer.h"
#include "tests/fakes/FakeSurroundings.h"

#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>
#include <map>

namespace tessa::qt {

/// Lets events run until the condition holds; false when it did not within half a minute.
bool WaitUntil(const std::function<bool()>& condition);

/// Whether the question, a cover or a bar, takes answers by key and pointer by now.
bool TakesAnswers(const QWidget& question);
bool WaitForAnswers(const QWidget& question);

/// Runs events until the engine has nothing left to say about what was just done: a page that is asked to answer has
/// answered.
void Settle(Engine& engine, class QWebEnginePage* page);

/// Writes down every event of its views, one short line each. Navigations are "A 1 /page" (before one), "N" (complete),
/// "D" (its document complete) and "E" (a frame's, without a document). Others are "T" (title), "S" and "F" (download
/// begin and end), "back+". A frame's lines end with " frame". Passes them on when told to.
class EventRecorder final : public BrowserViewEvents {
public:
    void StatusTextChange(std::int16_t Index, TextView Text) override;
    void CommandStateChange(std::int16_t Index, HistoryCommand Command, bool Enable) override;
    void DownloadBegin(std::int16_t Index) override;
    void DownloadComplete(std::int16_t Index) override;
    void TitleChange(std::int16_t Index, TextView Text) override;
    void BeforeNavigate2(std::int16_t Index, PageLevel pDisp, TextView URL) override;
    BrowserView* NewWindow2(std::int16_t Index, NewWindowPlace Place) override;
    void NavigateComplete2(std::int16_t Index, PageLevel pDisp, TextView URL) override;
    void DocumentComplete(std::int16_t Index, PageLevel pDisp, TextView URL) override;
    void NavigationOverdue(std::int16_t) override { lines << QStringLiteral("late"); }
    void SecurityChange(std::int16_t) override {}
    void NavigationDropped(std::int16_t Index) override;
    void AttentionChange(std::int16_t Index, bool Asks) override;
    void ContextMenu(std::int16_t Index, const PageContext& Context) override;
    void WindowClosing(std::int16_t Index) override;
    void SoundChange(std::int16_t) override {}

    /// All lines so far, separated by blanks; forgets them.
    QString Take() { return std::exchange(lines, {}).join(u' '); }
    [[nodiscard]] qsizetype Count(const QString& line) const { return lines.count(line); }

    QStringList lines;
    QStringList statusTexts;
    std::optional<PageContext> menu; ///< asked for last
    std::function<BrowserView*()> supplyView;

private:
    void Add(const QString& kind, PageLevel level, TextView URL);
};

/// A folder for a profile. Goes away once the engine, which ends a little later than its profile, has written its last
/// file there.
struct ProfileFolder {
    ~ProfileFolder() {
        EXPECT_TRUE(WaitUntil([this] { return dir.remove(); }));
    }
    QTemporaryDir dir;
};

/// One view on the real engine, with its events written down.
class EngineView {
public:
    /// Its profile lies in that folder; in memory without one.
    explicit EngineView(const QString& profileFolder = {});
    ~EngineView();

    /// Another view takes the place of the one that is there.
    void Replace(Privacy privacy);
    /// Navigates and waits until the document is complete.
    void Load(const QString& address);
    void Navigate(const QString& address);
    /// Runs a script in the page and gives its result as text.
    QString Script(const QString& source);
    /// A person's click on the middle of the element.
    void ClickOn(const QString& elementId, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers modifiers = {});
    /// Moves the pointer there.
    void PointAt(const QString& elementId);

    InstanceProfile ownProfile;
    QWidget window;
    FakeEngineHost host;
    Engine engine;
    EventRecorder events;
    std::unique_ptr<BrowserView> view;
    [[nodiscard]] class PageView& Real() const;

private:
    void WaitForPicture();
    QPoint MiddleOf(const QString& elementId);
    QWidget* PointerTarget() const;
};

/// The engine's views as they are made, by their indexes, for tests that look into them.
class SeenViews final : public BrowserViewFactory {
public:
    explicit SeenViews(Engine& engine) : m_engine(engine) {}
    std::unique_ptr<BrowserView> Create(std::int16_t Index, BrowserViewEvents& events, Privacy privacy) override;
    [[nodiscard]] bool PagesWait() const override { return m_engine.PagesWait(); }
    /// Of a view that lives.
    [[nodiscard]] PageView& At(std::int32_t index) const { return *m_made.at(index); }

private:
    Engine& m_engine;
    std::map<std::int32_t, PageView*> m_made;
};

/// A user at the program on the real engine; the rest of the world is faked.
class EngineDesk : public FakeSurroundings {
public:
    explicit EngineDesk(const OwnParts& own = {});
    ~EngineDesk();

    [[nodiscard]] PageView& View(std::int32_t index) const { return views.At(index); }
    void Open(const std::vector<QString>& addresses);

    QWidget window;
    InstanceProfile ownProfile{{}, {}};
    FakeEngineHost host;
    Engine engine{&window, ownProfile, host};
    SeenViews views{engine};
    std::unique_ptr<frmMain> main;
};

} // namespace tessa::qt
