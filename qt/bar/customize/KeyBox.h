#pragma once
#include "bar/KeyStroke.h"
#include "base/Signal.h"

#include <QLineEdit>
#include <optional>

namespace tessa::qt {

/// Records a combination of keys that is pressed in it. Tab leaves it, Escape is the dialog's, Backspace and Delete
/// alone empty it.
class KeyBox final : public QLineEdit {
    Q_OBJECT

public:
    explicit KeyBox(QWidget* parent = nullptr);

    /// What was recorded; its code is 0 for a key without a name. Nothing while the box is empty.
    [[nodiscard]] std::optional<KeyStroke> Recorded() const { return m_recorded; }
    void Empty();

    Signal<void()> Changed;
    /// Enter was pressed alone.
    Signal<void()> Entered;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Record(const QKeyEvent& event);

    std::optional<KeyStroke> m_recorded;
};

} // namespace tessa::qt
