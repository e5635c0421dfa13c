#pragma once
#include "bar/CommandBar.h"

#include <QComboBox>

namespace tessa::qt {

class ComboEdit;

/// One box of a combo tool, which several toolbars may show at a time. What the user types is the tool's at once; then
/// the box shows what the tool has made of it. While the user types, a text from elsewhere waits until the keyboard
/// goes elsewhere. `ComboBoxes` makes it and tells it of the tool's changes.
class ComboBox final : public QComboBox {
    Q_OBJECT

public:
    /// Bar and tool outlive it.
    ComboBox(CommandBar& bar, ComboTool& tool, QWidget* parent = nullptr);
    ~ComboBox() override;

    [[nodiscard]] ComboTool& Shown() const { return m_tool; }
    void ShowValue();
    void ShowSelection();
    /// Shows what is to stand beside the present text.
    void ShowSign();
    // Widths in logical pixels.
    /// How wide it would be had it room enough, and how narrow it may become.
    [[nodiscard]] int Wanted() const;
    [[nodiscard]] int Narrowest() const;
    /// How wide it may be: a box that fills its row is as wide as that, another one no wider. 0 for as wide as it
    /// wants.
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
    void ShowPicture(const BoxSign& sign);
    void ShowAnswer();
    void ShowText(const QString& text);
    void FillList();
    void SetEditing(bool editing);
    void Restore();

    CommandBar& m_bar;
    ComboTool& m_tool;
    ComboEdit* m_edit;
    QAction* m_sign = nullptr; ///< before the text
    BoxSign m_shownSign;
    Text m_pageText; ///< the last text that the user did not make
    int m_room = 0;
    bool m_editing = false;    ///< the text is the user's
    bool m_heldBack = false;   ///< another text came while it was
    bool m_publishing = false; ///< the tool changes by this box
    bool m_showing = false;    ///< this box changes by the tool
};

} // namespace tessa::qt
