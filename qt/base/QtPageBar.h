#pragma once
#include <QWidget>

/// A bar above the page that has something to say: with a ground of its own and a line that parts it from what is
/// below, be it the page or another bar.
class QtPageBar : public QWidget {
    Q_OBJECT

public:
    QtPageBar(const QString& name, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};
