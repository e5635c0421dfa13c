#pragma once
#include <QLineEdit>

namespace tessa::qt {

/// The field of a box of the command bar. The click that brings the keyboard into it selects all of its text.
class ComboEdit final : public QLineEdit {
    Q_OBJECT

public:
    explicit ComboEdit(QWidget* parent = nullptr) : QLineEdit(parent) {}

    /// An input method is at work on text that is not yet part of the field's.
    [[nodiscard]] bool IsComposing() const { return m_composing; }
    /// Replaces the text, as far as it goes on from the present one without taking away what can be undone.
    void Show(const QString& text);
    /// Draws a part of the present text in the full colour and the rest in a fainter one. Of a subdued text nothing has
    /// the full colour. Without such a part all is alike. Ends with the text.
    void ShowWeight(int start, int length, bool subdued);
    /// Scrolls to where that part can be read, its end above all; else to the beginning.
    void ShowWeighty();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Paint();

    int m_weightStart = 0, m_weightLength = 0;
    bool m_subdued = false;
    bool m_composing = false;
    bool m_selectOnRelease = false;
};

} // namespace tessa::qt
