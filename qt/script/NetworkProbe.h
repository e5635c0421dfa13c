#pragma once
#include "groups/GroupCheck.h"

#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QSet>

class QNetworkReply;

namespace tessa {
class AcceptedCertificates;
} // namespace tessa

namespace tessa::qt {

/// Asks servers by the program's own way into the network: its proxy, the certificates of this computer and those that
/// the user has accepted. It keeps no cookies and sends none, and takes no more of an answer than its head.
class NetworkProbe final : public QObject, public AddressProbe {
public:
    /// `accepted` outlives it. `patience` is how long a server may be silent, in milliseconds.
    explicit NetworkProbe(const AcceptedCertificates& accepted, int patience = 20000);
    ~NetworkProbe() override { StopAll(); }

    void Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) override;
    void StopAll() override;

private:
    void OnRefused(QNetworkReply& reply) const;
    void End(QNetworkReply* reply, const std::function<void(const ProbeAnswer&)>& answered);

    const AcceptedCertificates& m_accepted;
    const int m_patience;
    QNetworkAccessManager m_network;
    QSet<QNetworkReply*> m_open;
};

} // namespace tessa::qt
