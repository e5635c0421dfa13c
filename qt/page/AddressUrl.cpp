#include "qt/page/AddressUrl.h"

#include "address/TypedAddress.h"
#include "qt/base/Strings.h"

#include <QDir>

namespace tessa::qt {

Text AddressUrl::Shown(const QUrl& url) {
    QUrl shown = url.adjusted(QUrl::RemoveUserInfo);
    // As the engine writes it.
    if (shown.path().isEmpty() && !shown.host().isEmpty()) shown.setPath(QStringLiteral("/"));
    return FromQt(shown.toString(QUrl::FullyEncoded));
}

AddressUrl AddressUrl::FromTyped(TextView typed) {
    const TypedAddress read = MeaningOf(typed, [](TextView address) { return QUrl(ToQt(address)).isValid(); });
    const QString target = ToQt(read.Target);
    const bool path = read.Kind == TypedKind::Path;
    return {path ? QUrl::fromLocalFile(QDir::cleanPath(target)) : QUrl(target), QUrl(ToQt(read.Fallback))};
}

} // namespace tessa::qt
