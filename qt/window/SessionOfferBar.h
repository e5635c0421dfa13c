#pragma once
#include "base/Signal.h"
#include "platform/WallClock.h"
#include "qt/base/PageBar.h"
#include "sessions/SessionOffer.h"

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace tessa::qt {

/// The bar above the page that offers to reopen the pages of a session that ended badly. It waits for as long as the
/// user likes.
class SessionOfferBar final : public PageBar, public SessionOffer {
    Q_OBJECT

public:
    /// The clock outlives it.
    SessionOfferBar(QWidget* parent, const WallClock& clock);

    void Offer(TextView id, const Session& session) override;
    void Withdraw() override;

    Signal<void(const Text& id)> Reopen;
    Signal<void(const Text& id)> Dismiss;
    /// Opens the list of earlier sessions.
    Signal<void()> ShowAll;
    /// The bar was shown or hidden.
    Signal<void()> Changed;

private:
    void AddButtons(QHBoxLayout& row);
    void Close();

    const WallClock& m_clock;
    Text m_id; ///< of the session that is offered
    QLabel* m_text;
    QLabel* m_which;
};

} // namespace tessa::qt
