#pragma once
#include <QObject>
#include <QPointer>

class QWebEngineCertificateError;

namespace tessa {
class AcceptedCertificates;
} // namespace tessa

namespace tessa::qt {

class QtCertificatePage;
class QtCovers;
class QtPage;

/// Answers refused certificates of one page. That of the page itself is explained in its place; the user may go on.
/// Those of its parts are refused without a word.
class QtCertificates final : public QObject {
    Q_OBJECT

public:
    /// All outlive this object.
    QtCertificates(QtPage& page, QtCovers& covers, AcceptedCertificates& accepted);

private:
    void OnError(QWebEngineCertificateError error);
    void Explain(const QWebEngineCertificateError& error);
    void TakeOff();

    QtPage& m_page;
    QtCovers& m_covers;
    AcceptedCertificates& m_accepted;
    QPointer<QtCertificatePage> m_shown;
};

} // namespace tessa::qt
