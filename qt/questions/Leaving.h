#pragma once
#include "base/Signal.h"
#include "platform/BrowserView.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

namespace tessa::qt {

class WebPage;

/// Asks a page whether it holds its user back from leaving it. One that holds a text does so only when the program
/// ends. What was typed in a tab comes back when it is opened again. Belongs to the page.
class Leaving final : public QObject {
    Q_OBJECT

public:
    explicit Leaving(WebPage& page);

    /// Whether the page may want to hold its user.
    [[nodiscard]] bool MayHold() const;
    /// Tells later whether it does. A page that gives no answer for a while holds nobody.
    void Ask(LeaveReason why, std::function<void(bool holds)> told);
    /// The user leaves the document shown, whatever it wants.
    void Leave() { m_left = true; }
    /// He stays after all: nobody waits for the page's answer, unless it has been asked for good already.
    void LetStay();
    /// The engine closes the page: whether that is the answer to a question of ours, perhaps one that came too late.
    /// A page that has let go closes nothing any more.
    [[nodiscard]] bool TakeClose();

private:
    using Askers = std::vector<std::function<void(bool holds)>>;

    void RequestClose();
    void Tell(Askers& askers, bool holds);
    void GiveUp();
    void LetGo();
    [[nodiscard]] std::optional<bool> OnHold();

    WebPage& m_page;
    Askers m_closers; ///< who have asked it for good, and wait for its answer
    Askers m_seekers; ///< who want to know
    QTimer m_patience;
    int m_question = 0;       ///< counts those that only want to know, for answers that come too late
    int m_closeQuestion = 0;  ///< counts those for good
    bool m_requested = false; ///< the page is being asked for good
    bool m_left = false;      ///< the document shown has let go, or its user has left it
    Connections m_connections;
};

} // namespace tessa::qt
