#include "qt/QtCaptureBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

QtCaptureBar::QtCaptureBar(QWidget* parent) : QWidget(parent), m_words(new QLabel(this)) {
    setObjectName(QStringLiteral("captureBar"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    m_words->setObjectName(QStringLiteral("lblCaptures"));
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_words->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_words->setToolTip(QStringLiteral("You have allowed it. Pages do not say when they stop, so this stays until the "
                                       "page is left or loaded again."));
    auto* stop = new QPushButton(QStringLiteral("S&top"), this);
    stop->setObjectName(QStringLiteral("cmdStopCaptures"));
    stop->setToolTip(QStringLiteral("Load the page again, which ends it"));
    connect(stop, &QPushButton::clicked, this, [this] {
        if (Stop) Stop();
    });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->addWidget(m_words, 1);
    row->addWidget(stop);
    hide();
}

void QtCaptureBar::Tell(const QStringList& captures) {
    const QString words = captures.join(u' ');
    if (words == m_words->text()) return;
    m_words->setText(words);
    setAccessibleName(words);
    setVisible(!captures.isEmpty());
    if (Changed) Changed();
}
