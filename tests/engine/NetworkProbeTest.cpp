// Tests: NetworkProbe
#include "qt/script/NetworkProbe.h"

#include "pages/Certificates.h"
#include "qt/base/Strings.h"
#include "qt/engine/WebOptions.h"
#include "qt/questions/RefusedCertificates.h"
#include "tests/engine/EngineDesk.h"

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>

namespace tessa::qt {

namespace {

using Trouble = ProbeAnswer::Trouble;

class NetworkProbeTest : public testing::Test {
protected:
    /// What is answered about that address, once it has been.
    ProbeAnswer Ask(const QString& address, int patience = 20000) {
        NetworkProbe probe(accepted, patience);
        std::optional<ProbeAnswer> answer;
        probe.Ask(FromQt(address), [&answer](const ProbeAnswer& came) { answer = came; });
        EXPECT_TRUE(WaitUntil([&answer] { return answer.has_value(); }));
        return answer.value_or(ProbeAnswer());
    }
    /// The certificate that a server shows.
    static QSslCertificate ShownBy(const LocalServer& server) {
        QSslSocket socket;
        socket.setPeerVerifyMode(QSslSocket::VerifyNone);
        socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), server.serverPort());
        EXPECT_TRUE(WaitUntil([&socket] { return socket.isEncrypted(); }));
        return socket.peerCertificate();
    }

    AcceptedCertificates accepted;
    LocalServer plain;
};

TEST_F(NetworkProbeTest, ASiteThatAnswersIsFine) {
    plain.Page(QStringLiteral("/a"), "a");
    EXPECT_EQ(Ask(plain.Address(QStringLiteral("/a"))).status, 200);
}

TEST_F(NetworkProbeTest, ARedirectIsToldAndNotFollowed) {
    plain.Redirect(QStringLiteral("/loop"), QStringLiteral("/loop"));
    const ProbeAnswer answer = Ask(plain.Address(QStringLiteral("/loop")));
    EXPECT_EQ(answer.location, FromQt(plain.Address(QStringLiteral("/loop"))));
    EXPECT_EQ(plain.requests.size(), 1);
}

TEST_F(NetworkProbeTest, AServerThatNeverAnswersIsGivenUp) {
    plain.Stall(QStringLiteral("/never"));
    EXPECT_EQ(Ask(plain.Address(QStringLiteral("/never")), 300).trouble, Trouble::TimeOut);
}

TEST_F(NetworkProbeTest, WhoHasStoppedHearsNothingMore) {
    plain.Stall(QStringLiteral("/never"));
    plain.Page(QStringLiteral("/a"), "a");
    NetworkProbe probe(accepted);
    int told = 0;
    probe.Ask(FromQt(plain.Address(QStringLiteral("/never"))), [&told](const ProbeAnswer&) { ++told; });
    ASSERT_TRUE(WaitUntil([this] { return plain.requests.size() == 1; }));
    probe.StopAll();
    EXPECT_EQ(Ask(plain.Address(QStringLiteral("/a"))).status, 200) << "events have run";
    EXPECT_EQ(told, 0);
}

TEST_F(NetworkProbeTest, ACertificateThatNobodyVouchesForIsRefusedUntilItsUserAcceptsIt) {
    LocalServer secure{QStringLiteral("self.example")};
    secure.Page(QStringLiteral("/a"), "a");
    const QString address = secure.Address(QStringLiteral("/a"));
    EXPECT_EQ(Ask(address).trouble, Trouble::Certificate);
    EXPECT_TRUE(secure.requests.isEmpty()) << "nothing was asked of the host";
    accepted.Accept(PlaceOf(QUrl(address)), u"00:11");
    EXPECT_EQ(Ask(address).trouble, Trouble::Certificate) << "another certificate is another question";
    accepted.Accept(PlaceOf(QUrl(address)), FingerprintOf(ShownBy(secure)));
    EXPECT_EQ(Ask(address).status, 200);
}

TEST_F(NetworkProbeTest, AProxyOfTheProgramsOwnIsAskedInstead) {
    plain.Raw(QStringLiteral("http://far.example/a"),
              "HTTP/1.1 410 Gone\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
    WebOptions::ApplyProxy({.proxy = ProxyKind::Http, .proxyHost = u"127.0.0.1", .proxyPort = plain.serverPort()},
                           nullptr);
    EXPECT_EQ(Ask(QStringLiteral("http://far.example/a")).status, 410);
    WebOptions::ApplyProxy({}, nullptr);
    EXPECT_EQ(plain.requests, QStringList{QStringLiteral("http://far.example/a")});
}

} // namespace

} // namespace tessa::qt
