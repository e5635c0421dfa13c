#pragma once
#include "forms/Choice.h"

#include <QString>

class QComboBox;

namespace tessa::qt {

/// Ties a choice to the box that shows it, both ways. `name` is the control's name and becomes the box's object name.
/// The form must outlive the box.
void Bind(Choice& choice, QComboBox& widget, const QString& name);

} // namespace tessa::qt
