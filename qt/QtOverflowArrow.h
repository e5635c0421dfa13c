#pragma once
#include <QProxyStyle>

class QToolButton;

/// Draws the arrows of the button for what did not fit on a bar. The desktop's style has a dark picture for it, which
/// cannot be seen on a dark ground.
class QtOverflowArrow final : public QProxyStyle {
    Q_OBJECT

public:
    /// Gives that button, which takes the style over, its arrows.
    static void Show(QToolButton& button);

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    using QProxyStyle::QProxyStyle;
};
