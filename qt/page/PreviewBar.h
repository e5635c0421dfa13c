#pragma once
#include "base/Signal.h"
#include "qt/base/PageBar.h"

namespace tessa::qt {

/// The bar above a print preview: prints what is shown, or closes the preview.
class PreviewBar final : public PageBar {
    Q_OBJECT

public:
    explicit PreviewBar(QWidget* parent);

    Signal<void()> Print;
    /// Called when the click has ended: it may end the bar.
    Signal<void()> Close;
};

} // namespace tessa::qt
