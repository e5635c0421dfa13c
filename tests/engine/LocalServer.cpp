#include "tests/engine/LocalServer.h"

#include <QFile>
#include <QProcess>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpSocket>
#include <QTemporaryDir>

namespace tessa::qt {

namespace {

constexpr char kHandshake = 0x16; // the first byte of whoever speaks TLS

/// Whether the socket was only about to begin with TLS.
bool BeginsWithTls(QTcpSocket* socket) {
    auto* secure = qobject_cast<QSslSocket*>(socket);
    if (!secure || secure->mode() != QSslSocket::UnencryptedMode) return false;
    if (!secure->peek(1).startsWith(kHandshake)) return false;
    secure->startServerEncryption();
    return true;
}

QByteArray Contents(const QString& path) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) qFatal("the test's certificate was not made");
    return file.readAll();
}

QSslConfiguration SelfSigned(const QString& name) {
    const QTemporaryDir folder;
    const QString key = folder.filePath(QStringLiteral("key.pem"));
    const QString certificate = folder.filePath(QStringLiteral("certificate.pem"));
    QProcess maker;
    maker.start(QStringLiteral("openssl"),
                QStringLiteral("req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 30 -keyout %1 "
                               "-out %2 -subj /CN=%3 -addext subjectAltName=IP:127.0.0.1,DNS:%3")
                    .arg(key, certificate, name)
                    .split(u' '));
    maker.waitForFinished();
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPrivateKey(QSslKey(Contents(key), QSsl::Ec));
    tls.setLocalCertificate(QSslCertificate(Contents(certificate)));
    tls.setPeerVerifyMode(QSslSocket::VerifyNone);
    return tls;
}

} // namespace

LocalServer::LocalServer() {
    connect(this, &QTcpServer::newConnection, this, &LocalServer::OnConnection);
    if (!listen(QHostAddress::AnyIPv4)) qFatal("the test's server cannot listen");
}

LocalServer::LocalServer(const QString& certificateName) : LocalServer() { m_tls = SelfSigned(certificateName); }

void LocalServer::incomingConnection(qintptr descriptor) {
    if (!m_tls) return QTcpServer::incomingConnection(descriptor);
    auto* socket = new QSslSocket(this);
    socket->setSslConfiguration(*m_tls);
    socket->setSocketDescriptor(descriptor);
    if (!m_plainToo) socket->startServerEncryption();
    addPendingConnection(socket);
}

void LocalServer::Page(const QString& path, const QByteArray& html) {
    m_answers[path] = "HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nCache-Control: no-store\r\n"
                      "Connection: close\r\nContent-Length: " +
                      QByteArray::number(html.size()) + "\r\n\r\n" + html;
}

void LocalServer::Redirect(const QString& path, const QString& to) {
    m_answers[path] =
        "HTTP/1.1 302 Found\r\nLocation: " + to.toUtf8() + "\r\nConnection: close\r\nContent-Length: 0\r\n\r\n";
}

QString LocalServer::Address(const QString& path, const QString& host) const {
    return QStringLiteral("%1://%2:%3%4")
        .arg(m_tls ? QStringLiteral("https") : QStringLiteral("http"), host)
        .arg(serverPort())
        .arg(path);
}

void LocalServer::OnConnection() {
    while (auto* socket = nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { OnData(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void LocalServer::OnData(QTcpSocket* socket) {
    if (BeginsWithTls(socket)) return;
    // Small requests without a body: what ends with an empty line is whole.
    const QByteArray request = socket->peek(socket->bytesAvailable());
    if (!request.contains("\r\n\r\n")) return;
    socket->readAll();
    const QString path = QString::fromLatin1(request.split(' ').value(1));
    if (path != u"/favicon.ico") requests << path;
    if (m_makers.contains(path)) {
        socket->write(m_makers[path](request));
    } else if (!m_answers.contains(path)) {
        socket->write("HTTP/1.1 404 Not Found\r\nConnection: close\r\nContent-Length: 0\r\n\r\n");
    } else if (m_answers[path].isEmpty()) {
        return;
    } else {
        socket->write(m_answers[path]);
    }
    if (!m_open.contains(path)) socket->disconnectFromHost();
}

} // namespace tessa::qt
