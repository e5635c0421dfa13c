#include "pages/Certificates.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tessa {

namespace {

RefusedCertificate Refused(CertificateProblem problem) {
    return {.Host = u"bank.example",
            .Problem = problem,
            .IssuedTo = u"other.example",
            .IssuedBy = u"Nobody's Authority",
            .Names = {u"other.example", u"www.other.example"},
            .ValidFrom = u"1 May 2020",
            .ValidUntil = u"2 May 2021",
            .Fingerprint = u"AA:BB",
            .SelfSigned = false,
            .MayGoOn = true};
}

std::string Why(const RefusedCertificate& certificate) { return ToUtf8(CertificateWords::Why(certificate)); }

TEST(CertificateWords, NameTheHostInTheHeading) {
    EXPECT_EQ(CertificateWords::Heading(Refused(CertificateProblem::Expired)),
              u"TessaView cannot be sure that this is bank.example");
}

TEST(CertificateWords, SayWhyInPlainWords) {
    EXPECT_EQ(Why(Refused(CertificateProblem::UnknownIssuer)),
              "Its certificate was issued by \u201CNobody's Authority\u201D, whom this computer does not know.");
    EXPECT_EQ(Why(Refused(CertificateProblem::WrongName)), "The certificate that was shown belongs to other.example, "
                                                           "www.other.example, not to bank.example.");
    EXPECT_TRUE(Why(Refused(CertificateProblem::Expired)).starts_with("Its certificate was valid until 2 May 2021."));
    EXPECT_TRUE(
        Why(Refused(CertificateProblem::NotYetValid)).starts_with("Its certificate is not valid before 1 May 2020."));
    EXPECT_NE(Why(Refused(CertificateProblem::Revoked)).find("withdrawn"), std::string::npos);
    EXPECT_NE(Why(Refused(CertificateProblem::Weak)).find("forged"), std::string::npos);
    EXPECT_NE(Why(Refused(CertificateProblem::Broken)).find("damaged"), std::string::npos);
}

TEST(CertificateWords, SayThatAHostVouchesForItself) {
    auto certificate = Refused(CertificateProblem::UnknownIssuer);
    certificate.SelfSigned = true;
    EXPECT_TRUE(Why(certificate).starts_with("bank.example vouches for itself"));
}

TEST(CertificateWords, OfferNoWayOnWhereTheHostForbidsIt) {
    auto certificate = Refused(CertificateProblem::Expired);
    EXPECT_NE(CertificateWords::Choice(certificate).find(u"until TessaView ends"), Text::npos);
    certificate.MayGoOn = false;
    EXPECT_NE(CertificateWords::Choice(certificate).find(u"no way to go on"), Text::npos);
}

TEST(CertificateWords, TakeTheTricksOutOfACertificatesOwnWords) {
    auto certificate = Refused(CertificateProblem::UnknownIssuer);
    certificate.IssuedBy = u"Good\u202E\nNothing is wrong, go on" + Text(5000, u'x');
    EXPECT_EQ(Why(certificate).find('\n'), std::string::npos);
    EXPECT_LT(Why(certificate).size(), 300u);
}

TEST(CertificateWords, LeaveOutDetailsThatTheCertificateDoesNotHave) {
    auto certificate = Refused(CertificateProblem::WrongName);
    EXPECT_EQ(CertificateWords::Details(certificate).size(), 8u);
    certificate.IssuedBy.clear();
    certificate.Names.clear();
    const auto details = CertificateWords::Details(certificate);
    EXPECT_EQ(details.size(), 6u);
    EXPECT_EQ(std::ranges::count(details, u"Issued by", &CertificateWords::Detail::Name), 0);
}

TEST(AcceptedCertificates, HoldForOneHostWithOneCertificate) {
    AcceptedCertificates accepted;
    accepted.Accept(u"a.example", u"AA");
    EXPECT_TRUE(accepted.Has(u"a.example", u"AA"));
    EXPECT_FALSE(accepted.Has(u"a.example", u"BB")) << "another certificate is another question";
    EXPECT_FALSE(accepted.Has(u"b.example", u"AA"));
    EXPECT_TRUE(accepted.HasHost(u"a.example"));
    EXPECT_FALSE(accepted.HasHost(u"b.example"));
}

} // namespace

} // namespace tessa
