#pragma once
#include "base/Text.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tessa {

/// Why a certificate was refused.
enum class CertificateProblem { UnknownIssuer, WrongName, NotYetValid, Expired, Revoked, Weak, Broken };

/// A certificate that was refused, with what is told about it. Texts are the certificate's own and not to be trusted.
struct RefusedCertificate {
    Text Host;
    CertificateProblem Problem = CertificateProblem::Broken;
    Text IssuedTo;
    Text IssuedBy;
    std::vector<Text> Names; ///< the hosts that it is for
    Text ValidFrom;          ///< a date as the user writes it
    Text ValidUntil;
    Text Fingerprint; ///< SHA-256, in hexadecimal
    bool SelfSigned = false;
    bool MayGoOn = false; ///< false when the host forbids exceptions
};

/// The words of the page that stands in for one whose certificate was refused. All are plain text.
namespace CertificateWords {

[[nodiscard]] Text Heading(const RefusedCertificate& certificate);
/// Why it was refused, in a sentence or two.
[[nodiscard]] Text Why(const RefusedCertificate& certificate);
/// What may happen to one who goes on.
[[nodiscard]] Text Danger(const RefusedCertificate& certificate);
/// What can be done now.
[[nodiscard]] Text Choice(const RefusedCertificate& certificate);

/// One line of the details.
struct Detail {
    Text Name, Value;
};
[[nodiscard]] std::vector<Detail> Details(const RefusedCertificate& certificate);

} // namespace CertificateWords

/// The exceptions that the user has made: host and port, as in "a.example:8443", with the certificate that it showed
/// there. They end with the run.
class AcceptedCertificates {
public:
    void Accept(TextView host, TextView fingerprint) { m_accepted.emplace(host, fingerprint); }
    /// Another certificate of the same host is another question.
    [[nodiscard]] bool Has(TextView host, TextView fingerprint) const {
        return m_accepted.contains({Text(host), Text(fingerprint)});
    }
    /// Whether the host is shown by an exception.
    [[nodiscard]] bool HasHost(TextView host) const;

private:
    std::set<std::pair<Text, Text>> m_accepted;
};

} // namespace tessa
