#pragma once
#include "qt/base/QtPageBar.h"
#include <functional>

/// The bar above a print preview: prints what is shown, or closes the preview.
class QtPreviewBar final : public QtPageBar {
    Q_OBJECT

public:
    explicit QtPreviewBar(QWidget* parent);

    std::function<void()> Print;
    /// Called when the click has ended: it may end the bar.
    std::function<void()> Close;
};
