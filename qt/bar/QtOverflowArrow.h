#pragma once
#include <QProxyStyle>

/// Draws the arrows of the button for what did not fit on a bar of tools or menus. The desktop's style has a dark
/// picture for it, which cannot be seen on a dark ground.
class QtOverflowArrow final : public QProxyStyle {
    Q_OBJECT

public:
    /// Gives the button of that name in a bar, if there is one, its arrows and a name for screen reader and pointer.
    static void Show(const QWidget& bar, const QString& button, const QString& name);

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

private:
    using QProxyStyle::QProxyStyle;
};
