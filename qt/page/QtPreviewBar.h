#pragma once
#include "base/Signal.h"
#include "qt/base/QtPageBar.h"

namespace tessa::qt {

/// The bar above a print preview: prints what is shown, or closes the preview.
class QtPreviewBar final : public QtPageBar {
    Q_OBJECT

public:
    explicit QtPreviewBar(QWidget* parent);

    Signal<void()> Print;
    /// Called when the click has ended: it may end the bar.
    Signal<void()> Close;
};

} // namespace tessa::qt
