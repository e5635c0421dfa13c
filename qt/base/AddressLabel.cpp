#include "qt/base/AddressLabel.h"

#include <QPainter>

namespace tessa::qt {

namespace {
constexpr int kAddressFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere;
constexpr int kAddressWidth = 200;
constexpr int kEndless = 10000; // pixels
} // namespace

AddressLabel::AddressLabel(const QString& address, QWidget* parent) : QLabel(address, parent) {
    setTextFormat(Qt::PlainText);
    // Tells the layout that the height follows from the width.
    setWordWrap(true);
}

int AddressLabel::heightForWidth(int width) const {
    return fontMetrics().boundingRect(QRect(0, 0, width, kEndless), kAddressFlags, text()).height();
}

QSize AddressLabel::sizeHint() const { return {kAddressWidth, heightForWidth(kAddressWidth)}; }

QSize AddressLabel::minimumSizeHint() const { return {kAddressWidth, fontMetrics().height()}; }

void AddressLabel::paintEvent(QPaintEvent*) { QPainter(this).drawText(rect(), kAddressFlags, text()); }

} // namespace tessa::qt
