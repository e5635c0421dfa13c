#include "qt/window/SessionOfferBar.h"

#include "qt/base/Strings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tessa::qt {

SessionOfferBar::SessionOfferBar(QWidget* parent, const WallClock& clock)
    : PageBar(QStringLiteral("sessionOffer"), parent),
      m_clock(clock),
      m_text(new QLabel(this)),
      m_which(new QLabel(this)) {
    for (QLabel* each : {m_text, m_which}) {
        each->setTextFormat(Qt::PlainText);
        each->setWordWrap(true);
        each->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    }
    m_which->setObjectName(QStringLiteral("lblWhich"));
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(m_text);
    words->addWidget(m_which);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addLayout(words, 1);
    AddButtons(*row);
    hide();
}

void SessionOfferBar::AddButtons(QHBoxLayout& row) {
    auto* reopen = new QPushButton(QStringLiteral("&Reopen"), this);
    auto* all = new QPushButton(QStringLiteral("Show &All..."), this);
    auto* dismiss = new QPushButton(QStringLiteral("&Not Now"), this);
    reopen->setObjectName(QStringLiteral("cmdReopen"));
    all->setObjectName(QStringLiteral("cmdEarlier"));
    dismiss->setObjectName(QStringLiteral("cmdNotNow"));
    for (QPushButton* each : {reopen, all, dismiss}) row.addWidget(each);
    connect(reopen, &QPushButton::clicked, this, [this] {
        // The answer may bring another offer.
        const Text id = m_id;
        Close();
        Reopen(id);
    });
    connect(dismiss, &QPushButton::clicked, this, [this] {
        const Text id = m_id;
        Close();
        Dismiss(id);
    });
    connect(all, &QPushButton::clicked, this, [this] { ShowAll(); });
}

void SessionOfferBar::Offer(TextView id, const Session& session) {
    m_id = id;
    const std::size_t pages = session.Pages.size();
    const QString which = ToQt(SessionWords(session, m_clock.Words(session.Time)));
    m_text->setText(pages == 1 ? QStringLiteral("TessaView did not end properly. One page was open.")
                               : QStringLiteral("TessaView did not end properly. %1 pages were open.").arg(pages));
    m_which->setText(which);
    m_which->setVisible(!which.isEmpty());
    show();
    Changed();
}

void SessionOfferBar::Withdraw() {
    if (!isHidden()) Close();
}

void SessionOfferBar::Close() {
    hide();
    Changed();
}

} // namespace tessa::qt
