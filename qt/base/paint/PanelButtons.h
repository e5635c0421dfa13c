#pragma once
#include <QObject>

class QAbstractButton;
class QDockWidget;

namespace tessa::qt {

/// Paints the buttons in a panel's title with the colours of the desktop. The pictures that styles have for them are
/// drawn for light windows, for one scale. Lives as long as the panel.
class PanelButtons final : public QObject {
    Q_OBJECT

public:
    explicit PanelButtons(QDockWidget& panel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void Paint(QAbstractButton& button);
};

} // namespace tessa::qt
