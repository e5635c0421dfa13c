#include "qt/questions/CaptureBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace tessa::qt {

namespace {
constexpr QColor kCaptureMark(224, 49, 49);
constexpr int kCaptureMarkSize = 10;
constexpr int kCaptureMarkPlace = 26; // from the bar's edge to its words
} // namespace

CaptureBar::CaptureBar(QWidget* parent) : PageBar(QStringLiteral("captureBar"), parent), m_words(new QLabel(this)) {
    m_words->setObjectName(QStringLiteral("lblCaptures"));
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_words->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_words->setToolTip(QStringLiteral("You have allowed it. Pages do not say when they stop, so this stays until the "
                                       "page is left or loaded again."));
    auto* stop = new QPushButton(QStringLiteral("S&top"), this);
    stop->setObjectName(QStringLiteral("cmdStopCaptures"));
    stop->setToolTip(QStringLiteral("Load the page again, which ends it"));
    connect(stop, &QPushButton::clicked, this, [this] { Stop(); });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kCaptureMarkPlace, 4, 8, 4);
    row->addWidget(m_words, 1);
    row->addWidget(stop);
    hide();
}

// The mark that cameras themselves have.
void CaptureBar::paintEvent(QPaintEvent* event) {
    PageBar::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kCaptureMark);
    painter.drawEllipse(QRectF((kCaptureMarkPlace - kCaptureMarkSize) / 2.0, (height() - kCaptureMarkSize) / 2.0,
                               kCaptureMarkSize, kCaptureMarkSize));
}

void CaptureBar::Tell(const QStringList& captures) {
    const QString words = captures.join(u' ');
    if (words == m_words->text()) return;
    m_words->setText(words);
    setAccessibleName(words);
    setVisible(!captures.isEmpty());
    Changed();
}

} // namespace tessa::qt
