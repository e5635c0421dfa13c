#include "qt/page/LoadEnds.h"

#include <QWebEngineLoadingInfo>

namespace tessa::qt {

namespace {

// The engine hands on the numbers of its network stack.
enum NetworkError {
    kTimedOut = -7,
    kFileNotFound = -6,
    kInternetDisconnected = -106,
    kNameNotResolved = -105,
    kConnectionTimedOut = -118,
};

LoadEnd FailureOf(const QWebEngineLoadingInfo& info) {
    switch (info.errorCode()) {
    case kTimedOut:
    case kConnectionTimedOut:
        return LoadEnd::TimedOut;
    case kFileNotFound:
        return LoadEnd::NoFile;
    case kInternetDisconnected:
        return LoadEnd::Offline;
    case kNameNotResolved:
        return LoadEnd::NoHost;
    default:
        break;
    }
    switch (info.errorDomain()) {
    case QWebEngineLoadingInfo::DnsErrorDomain:
        return LoadEnd::NoHost;
    case QWebEngineLoadingInfo::ConnectionErrorDomain:
        return LoadEnd::Refused;
    case QWebEngineLoadingInfo::CertificateErrorDomain:
        return LoadEnd::Certificate;
    default:
        return LoadEnd::Failed;
    }
}

} // namespace

LoadEnd LoadEndOf(const QWebEngineLoadingInfo& info) {
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus) return LoadEnd::Done;
    if (info.status() != QWebEngineLoadingInfo::LoadFailedStatus) return LoadEnd::Stopped;
    const bool answered = info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain;
    return answered ? LoadEnd::Answered : FailureOf(info);
}

} // namespace tessa::qt
