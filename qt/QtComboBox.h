#pragma once
#include "common/CommandBar.h"

#include <QComboBox>

class QtComboEdit;

/// One box of a combo tool, which several toolbars may show at a time. What the user types is the tool's at once; then
/// the box shows what the tool has made of it. While the user types, a text from elsewhere waits until the keyboard
/// goes elsewhere. `QtComboBoxes` makes it and tells it of the tool's changes.
class QtComboBox final : public QComboBox {
    Q_OBJECT

public:
    /// Bar and tool outlive it.
    QtComboBox(CommandBar& bar, ComboTool& tool, QWidget* parent = nullptr);
    ~QtComboBox() override;

    [[nodiscard]] ComboTool& Shown() const { return m_tool; }
    void ShowValue();
    void ShowSelection();
    void ShowSign(const BoxSign& sign);
    /// How wide a box that fills its row may be, in logical pixels.
    void SetRoom(int width);

    void showPopup() override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void OnEdited();
    void OnChosen(int index);
    void Publish();
    void ShowAnswer();
    void ShowText(const QString& text);
    void FillList();
    void SetEditing(bool editing);
    void Restore();

    CommandBar& m_bar;
    ComboTool& m_tool;
    QtComboEdit* m_edit;
    QAction* m_sign = nullptr; ///< before the text
    Text m_pageText;           ///< the last text that the user did not make
    int m_room = 0;
    bool m_editing = false;    ///< the text is the user's
    bool m_heldBack = false;   ///< another text came while it was
    bool m_publishing = false; ///< the tool changes by this box
    bool m_showing = false;    ///< this box changes by the tool
};
