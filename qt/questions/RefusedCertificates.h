#pragma once
#include "base/Text.h"

#include <QObject>
#include <QPointer>

class QSslCertificate;
class QUrl;
class QWebEngineCertificateError;

namespace tessa {
class AcceptedCertificates;
} // namespace tessa

namespace tessa::qt {

class CertificatePage;
class Covers;
class WebPage;

/// What an exception holds for, see `AcceptedCertificates`: host and port, for another port may be another program's.
[[nodiscard]] Text PlaceOf(const QUrl& url);
[[nodiscard]] Text FingerprintOf(const QSslCertificate& certificate);

/// Answers refused certificates of one page. That of the page itself is explained in its place; the user may go on.
/// Those of its parts are refused without a word.
class RefusedCertificates final : public QObject {
    Q_OBJECT

public:
    /// All outlive this object.
    RefusedCertificates(WebPage& page, Covers& covers, AcceptedCertificates& accepted);

private:
    void OnError(QWebEngineCertificateError error);
    void Explain(const QWebEngineCertificateError& error);
    void TakeOff();

    WebPage& m_page;
    Covers& m_covers;
    AcceptedCertificates& m_accepted;
    QPointer<CertificatePage> m_shown;
};

} // namespace tessa::qt
