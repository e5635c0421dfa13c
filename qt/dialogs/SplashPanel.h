#pragma once
#include "window/frmSplash.h"

#include <QWidget>

namespace tessa::qt {

/// The picture and the lines of `frmSplash`, which the splash and the About box have in common. The form must outlive
/// it.
class SplashPanel : public QWidget {
public:
    explicit SplashPanel(frmSplash& form, QWidget* parent = nullptr);
};

} // namespace tessa::qt
