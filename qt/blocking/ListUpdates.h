#pragma once
#include "base/Signal.h"
#include "blocking/ListShelf.h"

#include <QNetworkAccessManager>
#include <QTimer>
#include <functional>

class QNetworkReply;

namespace tessa::qt {

class Blocker;

/// Fetches lists, those that have changed, by https alone: soon after they are chosen, and every few days while no page
/// loads. What comes is kept whole or not at all.
class ListUpdates final : public QObject {
public:
    /// The blocker outlives it. `isIdle` says whether nobody waits for pages.
    ListUpdates(Blocker& blocker, std::function<bool()> isIdle);

    /// Looks for newer lists now, whatever is due. `told` gets words about how it goes; the last ones when it is over.
    void Update(std::function<void(const Text&)> told);

private:
    void OnClock();
    void Fetch(const std::vector<ShelvedList>& lists);
    void FetchOne(const ShelvedList& list);
    void OnReply(QNetworkReply& reply, const ShelvedList& list);
    /// Whether the list is another one now.
    bool TakeReply(QNetworkReply& reply, const ShelvedList& list);
    void EndOne();

    Blocker& m_blocker;
    std::function<bool()> m_isIdle;
    QNetworkAccessManager m_network;
    QTimer m_clock;
    int m_running = 0, m_newer = 0, m_failed = 0;
    std::function<void(const Text&)> m_told;
    Connection m_changed;
};

} // namespace tessa::qt
