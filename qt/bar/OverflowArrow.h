#pragma once
#include <QProxyStyle>

namespace tessa::qt {

/// Draws the arrows of the button for what did not fit on a bar of tools or menus. The desktop's style has a dark
/// picture for it, which cannot be seen on a dark ground.
class OverflowArrow final : public QProxyStyle {
    Q_OBJECT

public:
    /// Gives a bar's button of that name, if there is one, its arrows and an accessible name.
    static void Show(const QWidget& bar, const QString& button, const QString& name);

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    using QProxyStyle::QProxyStyle;
};

} // namespace tessa::qt
