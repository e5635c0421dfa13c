#pragma once
#include <QProxyStyle>

namespace tessa::qt {

/// Qt's own style, which desktops without one of theirs have. In the dark it frames boxes and menus darker than their
/// ground, where nobody sees it; here they get a light frame there. In light colours nothing differs.
class DarkFrames final : public QProxyStyle {
    Q_OBJECT

public:
    DarkFrames();

    /// Puts it in the place of the program's style where that is Qt's own. Once there is an application.
    static void Install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
};

} // namespace tessa::qt
