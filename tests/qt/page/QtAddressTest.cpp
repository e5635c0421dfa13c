#include "qt/page/QtAddress.h"

#include "base/Address.h"
#include "base/LinkTrust.h"
#include "qt/base/QtText.h"

#include <gtest/gtest.h>

namespace {

TEST(QtAddress, WhatStandsBeforeASchemeHidesItFromNobody) {
    for (const TextView address : {u"file:///etc/passwd", u"mailto:x?attach=/etc/passwd"}) {
        const QString scheme = ToQt(address.substr(0, address.find(u':')));
        for (int unit = 0; unit <= 0xFFFF; ++unit) {
            const Text hidden = static_cast<char16_t>(unit) + Text(address);
            if (QtAddress::FromTyped(hidden).url.scheme() != scheme) continue;
            EXPECT_NE(TrustOf(hidden, LinkSource::Group), LinkTrust::Open) << std::hex << unit;
        }
    }
}

TEST(QtAddress, EveryBlankIsOne) {
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        const auto each = static_cast<char16_t>(unit);
        if (QString(QChar(each)).trimmed().isEmpty()) {
            EXPECT_EQ(Address::Trimmed(Text(1, each)), u"") << std::hex << unit;
        }
    }
}

TEST(QtAddress, BlanksOfEveryScriptAroundAnAddressAreNoneOfIt) {
    EXPECT_EQ(QtAddress::FromTyped(u"\u3000https://a.example/\u2028").url, QUrl(QStringLiteral("https://a.example/")));
    EXPECT_EQ(QtAddress::FromTyped(u"\u3000 \u0085").url, QUrl(QStringLiteral("about:blank")));
}

} // namespace
