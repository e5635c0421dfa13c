#pragma once
#include "platform/VisitStore.h"
#include "qt/script/PageReads.h"
#include "qt/script/ScriptCall.h"
#include "qt/script/TabWalk.h"

#include <QObject>
#include <functional>
#include <vector>

namespace tessa::qt {

/// What a script does with tabs and with the window as a whole.
class TabMethods {
public:
    /// All outlive it.
    TabMethods(ScriptedWindow& window, VisitStore& visits, PageReads& reads, LoadWaits& waits)
        : m_window(window), m_visits(visits), m_reads(reads), m_waits(waits) {}

    [[nodiscard]] std::vector<ScriptMethod> All();

    /// A caller whom the desktop has started wants the window in front, with the desktop's permission for it.
    Signal<void(const QByteArray& token)> Foreground;

private:
    void Search(const ScriptCall& call);
    void FindRead(const ScriptCall& call);
    /// Calls `then` when the open pages have been read that were not read yet. One that is busy with itself is not
    /// waited for long.
    void WhenRead(const std::function<void()>& then);
    void RunCommand(const ScriptCall& call);
    void Wait(const ScriptCall& call);
    void ComeForward(const ScriptCall& call);
    void Quit(const ScriptCall& call);

    ScriptedWindow& m_window;
    VisitStore& m_visits;
    PageReads& m_reads;
    LoadWaits& m_waits;
    QObject m_waiter; ///< ends what waits for pages
};

} // namespace tessa::qt
