#pragma once
#include "groups/GroupCheck.h"

#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QSet>

class QNetworkReply;

namespace tessa::qt {

/// Asks servers by the program's own way into the network: its proxy, the certificates of this computer. It keeps no
/// cookies and sends none, and takes no more of an answer than its head.
class NetworkProbe final : public QObject, public AddressProbe {
public:
    /// How long a server may be silent, in milliseconds.
    explicit NetworkProbe(int patience = 20000);
    ~NetworkProbe() override { StopAll(); }

    void Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) override;
    void StopAll() override;

private:
    void End(QNetworkReply* reply, const std::function<void(const ProbeAnswer&)>& answered);

    const int m_patience;
    QNetworkAccessManager m_network;
    QSet<QNetworkReply*> m_open;
};

} // namespace tessa::qt
