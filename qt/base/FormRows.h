#pragma once
// Widgets for the controls of a form, made and tied at once. `name` is the control's name, see Bind.h.

#include "forms/Controls.h"

#include <QChar>
#include <QDialogButtonBox>
#include <initializer_list>

class QCheckBox;
class QLabel;
class QPushButton;

namespace tessa::qt {

[[nodiscard]] QLabel* NewLabel(Label& label, const char* name, QChar accessKey = {});
[[nodiscard]] QCheckBox* NewCheckBox(CheckBox& box, const char* name, QChar accessKey = {});
/// Return does not press it, not even while it has the focus: it presses the dialog's default button.
[[nodiscard]] QPushButton* NewButton(Button& button, const char* name, QChar accessKey = {});

/// A button of a dialog's last row.
struct DialogButton {
    Button& Pressed;
    const char* Name;
    QDialogButtonBox::ButtonRole Role;
};

/// The last row of a dialog, of buttons as `NewButton` makes them.
[[nodiscard]] QDialogButtonBox* NewButtonRow(std::initializer_list<DialogButton> buttons);
/// The two answers to a dialog. The first is its default; Return presses the one that has the focus.
[[nodiscard]] QDialogButtonBox* NewAnswers(const DialogButton& yes, const DialogButton& no);

} // namespace tessa::qt
