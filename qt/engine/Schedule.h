#pragma once
#include "base/Signal.h"
#include "base/os/IdleCores.h"
#include "tabs/MemoryShortage.h"
#include "tabs/NavigationQueue.h"

#include <QElapsedTimer>
#include <QTimer>
#include <cstdint>
#include <map>
#include <set>

namespace tessa::qt {

/// Where a view is shown: with the keyboard, or beside the one that has it.
enum class ShownAs { Front, Beside };

/// Decides when views load, and which of them is shown. What is asked of it takes place at the next turn of the event
/// loop, and not before `Start()`. So of several views brought to the front only the last is shown.
class Schedule final : public QObject {
public:
    /// A view, and what it does when its turn has come.
    class View {
    public:
        virtual ~View() = default;
        /// Does the navigation that was last asked for.
        virtual void StartNavigation() = 0;
        /// It is shown from now on, or in another place than before.
        virtual void Show(ShownAs place) = 0;
        virtual void Hide() = 0;
    };

    Schedule();

    void Start();
    /// From now on the view takes part; until it is removed, which must be before it goes.
    void Add(std::int32_t index, View& view);
    void Remove(std::int32_t index);

    /// The view is to load something, and gives up what it still loads.
    void AskTurn(std::int32_t index);
    /// The view has nothing to load any more.
    void EndTurn(std::int32_t index);
    /// Something of the page that the view loads has come.
    void NoteSign(std::int32_t index);
    void BringToFront(std::int32_t index);
    /// The view is shown together with the one in front, until it is parked.
    void ShowBeside(std::int32_t index);
    /// The view is no longer to be shown beside the one in front.
    void Park(std::int32_t index);
    /// Has the waiting work done, once, at the next turn of the event loop.
    void Wake();

    /// The view in front as it is shown; 0 for none.
    [[nodiscard]] std::int32_t Shown() const { return m_shown; }
    /// That one and those beside it.
    [[nodiscard]] const std::set<std::int32_t>& AllShown() const { return m_visible; }
    /// Whether the view stays in sight: it is the one to be in front, or beside that one.
    [[nodiscard]] bool IsWanted(std::int32_t index) const { return index == m_front || m_beside.contains(index); }
    /// Whether pages wait for their turn to load.
    [[nodiscard]] bool PagesWait() const { return m_queue.Waiting() > 0; }
    /// How short memory is from now on.
    void SetShortage(Shortage shortage);
    /// Another view is shown than before.
    Signal<void()> FrontChanged;
    /// Another one is in front, or others are shown beside it.
    Signal<void()> ShownChanged;

private:
    void Turn();
    void LookAtMachine(NavigationQueue::Time now);
    void ShowWanted();
    void ShowFront();
    void ShowNextBeside();
    void HideOthers();
    [[nodiscard]] View* Find(std::int32_t index) const;
    [[nodiscard]] NavigationQueue::Time Now() const { return NavigationQueue::Time{m_clock.elapsed()}; }

    std::map<std::int32_t, View*> m_views;
    NavigationQueue m_queue;
    IdleCores m_idle;
    Shortage m_shortage = Shortage::None;
    NavigationQueue::Time m_looked{0}; ///< when the machine was last looked at
    QTimer m_turn;
    QElapsedTimer m_clock;
    std::int32_t m_front = 0;
    std::int32_t m_shown = 0;
    std::set<std::int32_t> m_beside;  ///< to be shown together with the one in front
    std::set<std::int32_t> m_visible; ///< as it is now
    bool m_besideChanged = false;
    bool m_started = false;
};

} // namespace tessa::qt
