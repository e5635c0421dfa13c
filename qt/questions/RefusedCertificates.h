#pragma once
#include <QObject>
#include <QPointer>

class QWebEngineCertificateError;

namespace tessa {
class AcceptedCertificates;
} // namespace tessa

namespace tessa::qt {

class CertificatePage;
class Covers;
class WebPage;

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
