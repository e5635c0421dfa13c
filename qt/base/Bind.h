#pragma once
// Ties the controls of a form to the widgets that show them. Both sides follow each other. What the user does reaches
// the control and its form's handler; what the form assigns reaches the widget. A widget that is deleted
// unties itself; the form must outlive its widgets.

#include "forms/Controls.h"

#include <QString>

class QCheckBox;
class QDialog;
class QLabel;
class QLineEdit;
class QObject;
class QPushButton;

namespace tessa::qt {

/// Keeps a connection until the owner is deleted.
void KeepWith(QObject& owner, Connection connection);

/// The caption with "&" before the access key, at a word's beginning where there is one. Unchanged when the caption has
/// no such letter. A "&" in the caption stays visible.
[[nodiscard]] QString WithAccessKey(const QString& caption, QChar key);

/// `name` is the control's name and becomes the widget's object name; the accessible name is the caption. Without an
/// access key a "&" in the caption is one.
void Bind(CheckBox& box, QCheckBox& widget, const QString& name, QChar accessKey = {});
void Bind(Button& button, QPushButton& widget, const QString& name, QChar accessKey = {});
/// The label's text is shown as it is, never as rich text. Give it a buddy for its access key to lead to.
void Bind(Label& label, QLabel& widget, const QString& name, QChar accessKey = {});
/// `accessibleName` is what the user would call the box, as a rule its label.
void Bind(TextBox& box, QLineEdit& widget, const QString& name, const QString& accessibleName);
/// The dialog is hidden with the form. Escape and the window's close button press `cancel`.
void Bind(FormState& form, QDialog& dialog, Button& cancel);

/// Shows the form in its dialog until the form hides. The dialog may be deleted meanwhile, with its parent.
void ShowModal(FormState& form, QDialog& dialog);

} // namespace tessa::qt
