#pragma once
#include "base/Signal.h"
#include "qt/base/PageBar.h"
#include <QStringList>

class QLabel;

namespace tessa::qt {

/// The bar above the page. It is there while any page, also one behind, may see or hear its user.
class CaptureBar final : public PageBar {
    Q_OBJECT

public:
    explicit CaptureBar(QWidget* parent);

    /// What each page may, as in "a.example may use your camera."; none hides the bar.
    void Tell(const QStringList& captures);

    /// Ends it all.
    Signal<void()> Stop;
    /// The bar was shown or hidden, or needs other room.
    Signal<void()> Changed;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_words;
};

} // namespace tessa::qt
