#include "pages/Certificates.h"

#include "base/PlainText.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr std::size_t kLongestSubject = 120;
constexpr std::size_t kMostNames = 4;

Text Quoted(TextView name) { return u"\u201C" + PlainLine(name, kLongestSubject) + u"\u201D"; }

Text NamesOf(const RefusedCertificate& certificate) {
    Text names;
    for (std::size_t i = 0; i < certificate.Names.size() && i < kMostNames; ++i) {
        if (i > 0) names += u", ";
        names += PlainLine(certificate.Names[i], kLongestSubject);
    }
    if (certificate.Names.size() > kMostNames) names += u" and others";
    return names;
}

Text WhyUnknown(const RefusedCertificate& certificate) {
    if (certificate.SelfSigned)
        return certificate.Host + u" vouches for itself: nobody else has signed its certificate, so anybody could "
                                  u"have made it.";
    return u"Its certificate was issued by " + Quoted(certificate.IssuedBy) + u", whom this computer does not know.";
}

Text WhyWrongName(const RefusedCertificate& certificate) {
    const Text names = NamesOf(certificate);
    const Text owner = names.empty() ? Quoted(certificate.IssuedTo) : names;
    return u"The certificate that was shown belongs to " + owner + u", not to " + certificate.Host + u".";
}

TextView Problem(CertificateProblem problem) {
    switch (problem) {
    case CertificateProblem::UnknownIssuer:
        return u"The issuer is not known";
    case CertificateProblem::WrongName:
        return u"Made out to another name";
    case CertificateProblem::NotYetValid:
        return u"Not valid yet";
    case CertificateProblem::Expired:
        return u"No longer valid";
    case CertificateProblem::Revoked:
        return u"Withdrawn by its issuer";
    case CertificateProblem::Weak:
        return u"Made with a method that can be forged";
    case CertificateProblem::Broken:
        break;
    }
    return u"Damaged or incomplete";
}

} // namespace

namespace CertificateWords {

Text Heading(const RefusedCertificate& certificate) {
    return u"TessaView cannot be sure that this is " + certificate.Host;
}

Text Why(const RefusedCertificate& certificate) {
    constexpr TextView kClock = u" If the clock of this computer is wrong, set it first.";
    switch (certificate.Problem) {
    case CertificateProblem::UnknownIssuer:
        return WhyUnknown(certificate);
    case CertificateProblem::WrongName:
        return WhyWrongName(certificate);
    case CertificateProblem::NotYetValid:
        return (u"Its certificate is not valid before " + certificate.ValidFrom + u".").append(kClock);
    case CertificateProblem::Expired:
        return (u"Its certificate was valid until " + certificate.ValidUntil + u".").append(kClock);
    case CertificateProblem::Revoked:
        return u"Its certificate was withdrawn by the one who issued it, perhaps because it was stolen.";
    case CertificateProblem::Weak:
        return u"Its certificate was made with a method that can be forged.";
    case CertificateProblem::Broken:
        break;
    }
    return u"The certificate that it showed is damaged or incomplete.";
}

Text Danger(const RefusedCertificate& certificate) {
    return u"Somebody may be answering in place of " + certificate.Host +
           u" and could read and change what you send and see: passwords, messages, card numbers.";
}

Text Choice(const RefusedCertificate& certificate) {
    if (!certificate.MayGoOn)
        return u"Nothing was loaded. " + certificate.Host +
               u" asks browsers to make no exception for it, so there is no way to go on.";
    return u"Nothing was loaded. Go back unless you know why this certificate is refused. Going on makes an exception "
           u"for " +
           certificate.Host + u" with this very certificate, until TessaView ends.";
}

std::vector<Detail> Details(const RefusedCertificate& certificate) {
    std::vector<Detail> details{{u"Host", certificate.Host},
                                {u"Problem", Text(Problem(certificate.Problem))},
                                {u"Issued to", PlainLine(certificate.IssuedTo, kLongestSubject)},
                                {u"Issued by", PlainLine(certificate.IssuedBy, kLongestSubject)},
                                {u"For the hosts", NamesOf(certificate)},
                                {u"Valid from", certificate.ValidFrom},
                                {u"Valid until", certificate.ValidUntil},
                                {u"SHA-256", certificate.Fingerprint}};
    std::erase_if(details, [](const Detail& each) { return each.Value.empty(); });
    return details;
}

} // namespace CertificateWords

bool AcceptedCertificates::HasHost(TextView host) const {
    return std::ranges::any_of(m_accepted, [host](const auto& each) { return each.first == host; });
}

} // namespace tessa
