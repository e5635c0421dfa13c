#pragma once
#include <QByteArray>
#include <QHash>
#include <QHostAddress>
#include <QSet>
#include <QSslConfiguration>
#include <QStringList>
#include <QTcpServer>
#include <functional>
#include <optional>

namespace tessa::qt {

/// A web server of the test's own on 127.0.0.1, in the test's thread. It knows the pages that it was given, remembers
/// what it was asked for, and can leave a request unanswered.
class LocalServer final : public QTcpServer {
public:
    LocalServer();
    /// One that speaks TLS, with a certificate that it has signed itself, for 127.0.0.1 and that host.
    explicit LocalServer(const QString& certificateName);

    /// Answers who comes without TLS too, at the same port, so that "http:" and "https:" are one host.
    void SpeakPlainToo() { m_plainToo = true; }

    /// Answers `path` with that page.
    void Page(const QString& path, const QByteArray& html);
    /// Answers `path` with a whole response of the test's own: status line, header lines, empty line, body.
    void Raw(const QString& path, const QByteArray& response) { m_answers[path] = response; }
    void Redirect(const QString& path, const QString& to);
    /// Takes requests for `path` and never answers them.
    void Stall(const QString& path) { m_answers[path] = QByteArray(); }

    /// Whatever the answer for `path` is, it does not come to its end: the connection stays open behind it.
    void KeepOpen(const QString& path) { m_open.insert(path); }

    /// Answers `path` with what the function makes of the whole request.
    void Answer(const QString& path, std::function<QByteArray(const QByteArray& request)> answer) {
        m_makers[path] = std::move(answer);
    }

    [[nodiscard]] QString Address(const QString& path, const QString& host = QStringLiteral("127.0.0.1")) const;
    /// The paths asked for so far, in order; the engine's own wish for an icon is left out.
    QStringList requests;

private:
    void incomingConnection(qintptr descriptor) override;
    void OnConnection();
    void OnData(class QTcpSocket* socket);

    QHash<QString, QByteArray> m_answers;
    QSet<QString> m_open;
    QHash<QString, std::function<QByteArray(const QByteArray&)>> m_makers;
    std::optional<QSslConfiguration> m_tls;
    bool m_plainToo = false;
};

} // namespace tessa::qt
