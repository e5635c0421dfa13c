#include "qt/questions/CertificatePage.h"

#include "base/Captions.h"
#include "pages/Certificates.h"
#include "qt/base/AnswerGuard.h"
#include "qt/base/Strings.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr int kColumn = 640;
constexpr int kSignSize = 48;

QLabel* Words(const Text& text, QWidget* parent) {
    auto* label = new QLabel(ToQt(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

CertificatePage::CertificatePage(const RefusedCertificate& certificate) {
    setObjectName(QStringLiteral("certificatePage"));
    setAccessibleName(ToQt(CertificateWords::Heading(certificate)));
    setAccessibleDescription(ToQt(CertificateWords::Why(certificate)));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setAutoFillBackground(true);
    auto* body = new QWidget;
    body->setBackgroundRole(QPalette::Base);
    body->setAutoFillBackground(true);
    auto* column = new QWidget(body);
    column->setMaximumWidth(kColumn);
    auto* sides = new QHBoxLayout(body);
    sides->addStretch(1);
    sides->addWidget(column, 20);
    sides->addStretch(1);
    auto* lines = new QVBoxLayout(column);
    lines->setContentsMargins(16, 40, 16, 24);
    lines->setSpacing(14);
    AddWords(*lines, certificate);
    AddButtons(*lines, certificate);
    AddDetails(*lines, certificate);
    lines->addStretch(1);
    setWidget(body);
    setFocusProxy(m_back);
    new AnswerGuard(*this);
}

void CertificatePage::AddWords(QVBoxLayout& column, const RefusedCertificate& certificate) {
    auto* sign = new QLabel;
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(kSignSize));
    column.addWidget(sign);
    auto* heading = Words(CertificateWords::Heading(certificate), this);
    QFont large = heading->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    heading->setFont(large);
    heading->setObjectName(QStringLiteral("lblHeading"));
    column.addWidget(heading);
    auto* why = Words(CertificateWords::Why(certificate), this);
    why->setObjectName(QStringLiteral("lblWhy"));
    column.addWidget(why);
    column.addWidget(Words(CertificateWords::Danger(certificate), this));
    column.addWidget(Words(CertificateWords::Choice(certificate), this));
}

void CertificatePage::AddButtons(QVBoxLayout& column, const RefusedCertificate& certificate) {
    auto* row = new QHBoxLayout;
    m_back = new QPushButton(QStringLiteral("&Back"), this);
    m_back->setObjectName(QStringLiteral("cmdBack"));
    row->addWidget(m_back);
    connect(m_back, &QPushButton::clicked, this, [this] { GoBack(); });
    row->addStretch(1);
    if (certificate.MayGoOn) {
        auto* goOn = new QPushButton(QStringLiteral("&Go on to %1").arg(ToQt(EscapedCaption(certificate.Host))));
        goOn->setObjectName(QStringLiteral("cmdGoOn"));
        row->addWidget(goOn);
        connect(goOn, &QPushButton::clicked, this, [this] { GoOn(); });
    }
    column.addLayout(row);
}

void CertificatePage::AddDetails(QVBoxLayout& column, const RefusedCertificate& certificate) {
    auto* open = new QPushButton(QStringLiteral("&Details"), this);
    open->setObjectName(QStringLiteral("cmdDetails"));
    open->setCheckable(true);
    open->setFlat(true);
    column.addWidget(open, 0, Qt::AlignLeft);
    auto* details = new QWidget(this);
    details->setObjectName(QStringLiteral("certificateDetails"));
    auto* form = new QFormLayout(details);
    form->setContentsMargins(8, 0, 0, 0);
    for (const auto& [name, value] : CertificateWords::Details(certificate)) {
        // A fingerprint is one long word: it may wrap at its colons.
        QString text = ToQt(value);
        if (name == u"SHA-256") text.replace(u':', QStringLiteral(":\u200B"));
        form->addRow(ToQt(name) + u':', Words(FromQt(text), details));
    }
    details->hide();
    column.addWidget(details);
    connect(open, &QPushButton::toggled, details, &QWidget::setVisible);
}

void CertificatePage::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (auto* button = qobject_cast<QPushButton*>(focusWidget())) return button->click();
    }
    QScrollArea::keyPressEvent(event);
}

} // namespace tessa::qt
