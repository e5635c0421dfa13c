#include "qt/questions/RefusedCertificates.h"

#include "base/OwnAddresses.h"
#include "pages/Certificates.h"
#include "qt/base/Strings.h"
#include "qt/page/WebPage.h"
#include "qt/questions/CertificatePage.h"
#include "qt/questions/Covers.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QLocale>
#include <QSslCertificate>
#include <QWebEngineCertificateError>
#include <QWebEngineHistory>

namespace tessa::qt {

Text PlaceOf(const QUrl& url) { return FromQt(WebPage::HostAndPort(url)); }

Text FingerprintOf(const QSslCertificate& certificate) {
    return FromQt(QString::fromLatin1(certificate.digest(QCryptographicHash::Sha256).toHex(':').toUpper()));
}

namespace {

CertificateProblem CertificateProblemOf(const QWebEngineCertificateError& error, const QSslCertificate& certificate) {
    switch (error.type()) {
    case QWebEngineCertificateError::CertificateAuthorityInvalid:
    case QWebEngineCertificateError::CertificateKnownInterceptionBlocked:
    case QWebEngineCertificateError::CertificateSymantecLegacy:
        return CertificateProblem::UnknownIssuer;
    case QWebEngineCertificateError::CertificateCommonNameInvalid:
    case QWebEngineCertificateError::CertificateNonUniqueName:
    case QWebEngineCertificateError::CertificateNameConstraintViolation:
        return CertificateProblem::WrongName;
    case QWebEngineCertificateError::CertificateDateInvalid:
        return certificate.effectiveDate() > QDateTime::currentDateTimeUtc() ? CertificateProblem::NotYetValid
                                                                             : CertificateProblem::Expired;
    case QWebEngineCertificateError::CertificateRevoked:
        return CertificateProblem::Revoked;
    case QWebEngineCertificateError::CertificateWeakSignatureAlgorithm:
    case QWebEngineCertificateError::CertificateWeakKey:
    case QWebEngineCertificateError::SslObsoleteVersion:
        return CertificateProblem::Weak;
    default:
        return CertificateProblem::Broken;
    }
}

Text NameOf(const QSslCertificate& certificate, QSslCertificate::SubjectInfo part, bool issuer) {
    return FromQt((issuer ? certificate.issuerInfo(part) : certificate.subjectInfo(part)).join(QStringLiteral(", ")));
}

/// The common name, or the organisation where there is none.
Text NameOf(const QSslCertificate& certificate, bool issuer) {
    Text name = NameOf(certificate, QSslCertificate::CommonName, issuer);
    return name.empty() ? NameOf(certificate, QSslCertificate::Organization, issuer) : name;
}

QSslCertificate LeafOf(const QWebEngineCertificateError& error) {
    const auto chain = error.certificateChain();
    return chain.isEmpty() ? QSslCertificate() : chain.constFirst();
}

// In the form that cannot be mistaken for another host's.
Text HostOf(const QUrl& url) { return FromQt(url.host(QUrl::FullyEncoded)); }

RefusedCertificate Describe(const QWebEngineCertificateError& error) {
    const QSslCertificate leaf = LeafOf(error);
    RefusedCertificate refused{.Host = HostOf(error.url()),
                               .Problem = CertificateProblemOf(error, leaf),
                               .IssuedTo = NameOf(leaf, false),
                               .IssuedBy = NameOf(leaf, true),
                               .Names = {},
                               .ValidFrom =
                                   FromQt(QLocale().toString(leaf.effectiveDate().date(), QLocale::LongFormat)),
                               .ValidUntil = FromQt(QLocale().toString(leaf.expiryDate().date(), QLocale::LongFormat)),
                               .Fingerprint = FingerprintOf(leaf),
                               .SelfSigned = leaf.isSelfSigned(),
                               .MayGoOn = error.isOverridable()};
    for (const QString& name : leaf.subjectAlternativeNames()) refused.Names.push_back(FromQt(name));
    return refused;
}

} // namespace

RefusedCertificates::RefusedCertificates(WebPage& page, Covers& covers, AcceptedCertificates& accepted)
    : m_page(page), m_covers(covers), m_accepted(accepted) {
    connect(&page, &QWebEnginePage::certificateError, this, &RefusedCertificates::OnError);
    connect(&page, &QWebEnginePage::loadStarted, this, &RefusedCertificates::TakeOff);
}

void RefusedCertificates::OnError(QWebEngineCertificateError error) {
    if (!m_page.Awaits(error.url())) return error.rejectCertificate();
    if (error.isOverridable() && m_accepted.Has(PlaceOf(error.url()), FingerprintOf(LeafOf(error))))
        return error.acceptCertificate();
    Explain(error);
    error.rejectCertificate();
}

void RefusedCertificates::Explain(const QWebEngineCertificateError& error) {
    TakeOff();
    const RefusedCertificate refused = Describe(error);
    m_shown = new CertificatePage(refused);
    m_shown->GoBack.ConnectForLife([this] {
        TakeOff();
        if (m_page.history()->canGoBack())
            m_page.history()->back();
        else
            m_page.load(QUrl(ToQt(OwnAddresses::kStart)));
    });
    m_shown->GoOn.ConnectForLife(
        [this, place = PlaceOf(error.url()), fingerprint = refused.Fingerprint, url = error.url()] {
            m_accepted.Accept(place, fingerprint);
            TakeOff();
            // Loading again where the refused page stands leaves one entry in the page's history, not two.
            if (m_page.url() == url)
                m_page.triggerAction(QWebEnginePage::Reload);
            else
                m_page.load(url);
        });
    m_covers.Add(m_shown);
}

void RefusedCertificates::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}

} // namespace tessa::qt
