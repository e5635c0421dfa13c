#pragma once
#include <QWidget>

namespace tessa::qt {

/// A bar above the page that has something to say. It has its own background and a line that parts it from what is
/// below, the page or another bar.
class PageBar : public QWidget {
    Q_OBJECT

public:
    PageBar(const QString& name, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tessa::qt
