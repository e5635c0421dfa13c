#include "qt/page/MailLinks.h"

#include "qt/base/Strings.h"
#include "qt/page/AddressUrl.h"

#include <QUrlQuery>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// What a mail program reads: who it is for, the subject and the body, in brackets.
std::string Read(const QString& text) {
    const QUrl url = AddressUrl::FromTyped(FromQt(text)).url;
    const QUrlQuery query(url);
    const auto value = [&](const char* key) {
        return query.queryItemValue(QLatin1String(key), QUrl::FullyDecoded).toStdString();
    };
    const std::string rest = url.fragment().isEmpty() && query.queryItems().size() <= 2 ? "" : " and more";
    return url.scheme().toStdString() + "[" + url.path().toStdString() + "][" + value("subject") + "][" +
           value("body") + "]" + rest;
}

QString Link(const QString& title, const QString& address) {
    return QStringLiteral("mailto:?subject=") + title + QStringLiteral(" (") + address + QStringLiteral(")&body=") +
           address;
}

TEST(MailLinks, APageAttachesNoFiles) {
    for (const auto& [page, mail] : {
             std::pair("mailto:a@b.example?attach=/etc/passwd", "mailto:a@b.example"),
             std::pair("mailto:?attachment=x&subject=a%26b&ATTACH=y", "mailto:?subject=a%26b"),
             std::pair("mailto:?%61ttach=x&body=1%0A2", "mailto:?body=1%0A2"),
             std::pair("mailto:?To=a&cc=b&BCC=c&in-reply-to=d", "mailto:?To=a&cc=b&BCC=c"),
             std::pair("mailto:a@b.example", "mailto:a@b.example"),
             std::pair("mailto:a@b.example?subject=attach=x", "mailto:a@b.example?subject=attach=x"),
         })
        EXPECT_EQ(MailLinks::WithoutFiles(QUrl(QLatin1String(page))).toEncoded().toStdString(), mail) << page;
}

TEST(MailLinks, ALinkArrivesWholeWhateverItContains) {
    const QString address = QStringLiteral("http://a/?b=1&c=%20#d");
    EXPECT_EQ(Read(Link(QStringLiteral("Q & A? #1 100% \"+\" Ж"), address)),
              "mailto[][Q & A? #1 100% \"+\" Ж (http://a/?b=1&c=%20#d)][http://a/?b=1&c=%20#d]");
    EXPECT_EQ(Read(Link(QString(), QStringLiteral("about:blank"))), "mailto[][ (about:blank)][about:blank]");
}

TEST(MailLinks, ATitleThatLooksLikeAMailIsNone) {
    EXPECT_EQ(Read(Link(QStringLiteral("x&body=evil&bcc=a@b"), QStringLiteral("http://a/?x&body=y"))),
              "mailto[][x&body=evil&bcc=a@b (http://a/?x&body=y)][http://a/?x&body=y]");
}

TEST(MailLinks, ALineOfATitleBeginsNoNewLineOfTheHead) {
    EXPECT_EQ(Read(Link(QStringLiteral("a\r\nBcc: b"), QStringLiteral("http://a/"))),
              "mailto[][a  Bcc: b (http://a/)][http://a/]");
}

TEST(MailLinks, MailsToTheMakersKeepTheirSubject) {
    EXPECT_EQ(Read(QStringLiteral("mailto:support@tessaview.example?subject=Bug Report (TessaView 3.2.159-A & B #7)")),
              "mailto[support@tessaview.example][Bug Report (TessaView 3.2.159-A & B #7)][]");
    EXPECT_EQ(Read(QStringLiteral("mailto:support@tessaview.example")), "mailto[support@tessaview.example][][]");
    EXPECT_EQ(Read(QStringLiteral("mailto:")), "mailto[][][]");
}

TEST(MailLinks, OtherAddressesStayWhatTheyAre) {
    EXPECT_EQ(AddressUrl::FromTyped(u"mailto:a@b.example?subject=x%20y&cc=c@d.example").url.toEncoded(),
              "mailto:a@b.example?subject=x%20y&cc=c@d.example");
    EXPECT_EQ(Read(QStringLiteral("MAILTO:a@b.example?subject=C# and 100%")), "mailto[a@b.example][C# and 100%][]");
    EXPECT_EQ(Read(QStringLiteral("mailto:?subject=no link&body=of ours")), "mailto[][no link][of ours]");
}

} // namespace

} // namespace tessa::qt
