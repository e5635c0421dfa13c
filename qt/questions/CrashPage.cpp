#include "qt/questions/CrashPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr int kTextWidth = 480; // a line that is easily read
constexpr double kHeadingSize = 1.6;

QLabel* TextLine(const QString& text, QWidget* parent) {
    auto* line = new QLabel(text, parent);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    return line;
}

// An address may be longer than any window, and has nothing to break it at.
QString Shortened(const QString& address, const QFontMetrics& metrics) {
    return metrics.elidedText(address, Qt::ElideMiddle, kTextWidth);
}

} // namespace

CrashPage::CrashPage(const QString& address) : m_reload(new QPushButton(QStringLiteral("&Reload"), this)) {
    setObjectName(QStringLiteral("crashPage"));
    setAccessibleName(QStringLiteral("Page that stopped working"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    m_reload->setObjectName(QStringLiteral("cmdReload"));
    m_reload->setDefault(true);
    setFocusProxy(m_reload);
    LayOut(address);
    connect(m_reload, &QPushButton::clicked, this, [this] { Reload(); });
}

void CrashPage::LayOut(const QString& address) {
    auto* heading = TextLine(QStringLiteral("This page has stopped working."), this);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * kHeadingSize);
    heading->setFont(font);
    auto* place = TextLine(Shortened(address, fontMetrics()), this);
    place->setToolTip(address.toHtmlEscaped());
    place->setForegroundRole(QPalette::PlaceholderText);
    auto* column = new QVBoxLayout;
    column->setSpacing(12);
    column->addStretch(1);
    column->addWidget(heading);
    column->addWidget(place);
    column->addWidget(
        TextLine(QStringLiteral("The process that showed it has ended. Your other tabs go on as before, unless "
                                "they shared it. What you had typed into the page may be lost."),
                 this));
    column->addWidget(m_reload, 0, Qt::AlignLeft);
    column->addStretch(2);
    auto* row = new QHBoxLayout(this);
    row->addStretch(1);
    row->addLayout(column, 8);
    row->addStretch(1);
    for (auto* line : findChildren<QLabel*>()) line->setMaximumWidth(kTextWidth);
}

} // namespace tessa::qt
