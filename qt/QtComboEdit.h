#pragma once
#include <QLineEdit>

/// The field of a box of the command bar. The click that brings the keyboard into it selects all of its text.
class QtComboEdit final : public QLineEdit {
    Q_OBJECT

public:
    explicit QtComboEdit(QWidget* parent = nullptr) : QLineEdit(parent) {}

    /// An input method is at work on text that is not yet part of the field's.
    [[nodiscard]] bool IsComposing() const { return m_composing; }
    /// Replaces the text, as far as it goes on from the present one without taking away what can be undone.
    void Show(const QString& text);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool m_composing = false;
    bool m_selectOnRelease = false;
};
