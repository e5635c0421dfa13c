#pragma once
#include "base/Text.h"

#include <QUrl>

namespace tessa::qt {

/// What a text that a person typed, or a page named, leads to.
struct AddressUrl {
    QUrl url;
    /// Where to go when `url` cannot be connected to; empty when nowhere.
    QUrl fallback;

    /// A full address, a host without scheme, a local path, else words for the search partner. A host is tried over
    /// https first, over http when that cannot connect. Nothing leads to about:blank. Scripts are no address: they lead
    /// to about:blank too.
    static AddressUrl FromTyped(TextView text);

    /// An address as it is shown and kept: fully encoded, without a user's name and password.
    static Text Shown(const QUrl& url);
};

} // namespace tessa::qt
