#include "tests/engine/LocalServer.h"

#include <QTcpSocket>

LocalServer::LocalServer() {
    connect(this, &QTcpServer::newConnection, this, &LocalServer::OnConnection);
    if (!listen(QHostAddress::AnyIPv4)) qFatal("the test's server cannot listen");
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
    return QStringLiteral("http://%1:%2%3").arg(host).arg(serverPort()).arg(path);
}

void LocalServer::OnConnection() {
    while (auto* socket = nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { OnData(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void LocalServer::OnData(QTcpSocket* socket) {
    // Small requests without a body: what ends with an empty line is whole.
    const QByteArray request = socket->peek(socket->bytesAvailable());
    if (!request.contains("\r\n\r\n")) return;
    socket->readAll();
    const QString path = QString::fromLatin1(request.split(' ').value(1));
    if (path != u"/favicon.ico") requests << path;
    if (!m_answers.contains(path)) {
        socket->write("HTTP/1.1 404 Not Found\r\nConnection: close\r\nContent-Length: 0\r\n\r\n");
    } else if (m_answers[path].isEmpty()) {
        return;
    } else {
        socket->write(m_answers[path]);
    }
    socket->disconnectFromHost();
}
