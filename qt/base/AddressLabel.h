#pragma once
#include <QLabel>

namespace tessa::qt {

/// Shows an address whole: one word without a blank, broken wherever a line is full.
class AddressLabel final : public QLabel {
    Q_OBJECT

public:
    AddressLabel(const QString& address, QWidget* parent);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tessa::qt
