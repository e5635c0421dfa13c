#include "qt/page/PageTrust.h"

#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

PageSecurity Of(const char* address) {
    AcceptedCertificates accepted;
    accepted.Accept(u"own.example", u"AB:CD");
    return SecurityOf(QUrl(QLatin1String(address)), accepted);
}

TEST(PageSecurity, KnowsWhoStandsBehindAnAddress) {
    EXPECT_EQ(Of("https://a.example/"), PageSecurity::Secure);
    EXPECT_EQ(Of("http://a.example/"), PageSecurity::NotSecure);
    EXPECT_EQ(Of("https://own.example/x"), PageSecurity::Exception);
    EXPECT_EQ(Of("https://own.example:8443/x"), PageSecurity::Secure) << "another port is another program";
    EXPECT_EQ(Of("http://own.example/x"), PageSecurity::NotSecure);
    EXPECT_EQ(Of("file:///home/me/x.html"), PageSecurity::Local);
    EXPECT_EQ(Of("tessaview:start"), PageSecurity::Own);
    EXPECT_EQ(Of("about:blank"), PageSecurity::None);
    EXPECT_EQ(Of("data:text/html,https://a.example/"), PageSecurity::None);
}

TEST(PageSecurity, LooksThroughWhatShowsAnotherAddress) {
    EXPECT_EQ(Of("view-source:http://a.example/"), PageSecurity::NotSecure);
    EXPECT_EQ(Of("blob:https://a.example/1-2-3"), PageSecurity::Secure);
}

TEST(PageSecurity, IsNotFooledByNamesLikeThisComputer) {
    EXPECT_EQ(Of("http://127.0.0.1:8080/"), PageSecurity::Local);
    EXPECT_EQ(Of("http://[::1]/"), PageSecurity::Local);
    EXPECT_EQ(Of("http://localhost/"), PageSecurity::Local);
    EXPECT_EQ(Of("http://localhost.a.example/"), PageSecurity::NotSecure);
    EXPECT_EQ(Of("http://127.0.0.1.a.example/"), PageSecurity::NotSecure);
}

} // namespace

} // namespace tessa::qt
