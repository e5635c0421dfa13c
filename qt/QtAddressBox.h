#pragma once
#include "common/CommandBar.h"

#include <QLineEdit>
#include <functional>

/// Shows the text of a combo tool, which outlives it, and hands on what the user types. A click into the box selects
/// all of it; Escape brings back what it showed before the user typed.
class QtAddressBox final : public QLineEdit {
    Q_OBJECT

public:
    explicit QtAddressBox(ComboTool& tool, QWidget* parent = nullptr);
    ~QtAddressBox() override;

    /// The user pressed Enter. Filled in by the owner.
    std::function<void()> Entered;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void OnTyped(const QString& text);
    void Restore();

    ComboTool& m_tool;
    Text m_shown; ///< the last text that was not typed
    bool m_typing = false;
    bool m_selectOnRelease = false;
};
