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
    /// The engine closes the page: whether that is the answer to a question of ours.
    [[nodiscard]] bool TakeClose();

private:
    void Tell(bool holds);
    [[nodiscard]] std::optional<bool> OnHold();

    WebPage& m_page;
    std::vector<std::function<void(bool holds)>> m_told; ///< all who wait for the answer
    QTimer m_patience;
    int m_question = 0;     ///< counts them, for answers that come too late
    bool m_closing = false; ///< one of those who wait asked it for good
    bool m_left = false;
    Connections m_connections;
};

} // namespace tessa::qt
