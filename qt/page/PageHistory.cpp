#include "qt/page/PageHistory.h"

#include <QDataStream>
#include <QIODevice>
#include <QWebEngineHistory>
#include <QWebEnginePage>

namespace tessa::qt {

namespace {
constexpr auto kHistoryVersion = QDataStream::Qt_6_4;
} // namespace

namespace PageHistory {

QByteArray Bytes(const QWebEnginePage& page) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(kHistoryVersion);
    stream << *page.history();
    return bytes;
}

bool Fill(QWebEnginePage& page, const QByteArray& bytes) {
    QDataStream stream(bytes);
    stream.setVersion(kHistoryVersion);
    stream >> *page.history();
    return stream.status() == QDataStream::Ok && page.history()->count() > 0;
}

} // namespace PageHistory

} // namespace tessa::qt
