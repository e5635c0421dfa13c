#pragma once
#include <QString>

class QWidget;

namespace tessa::qt {

/// Whether the user really wants everything back that `words` tells of. Return and Escape keep it as it is.
[[nodiscard]] bool ConfirmReset(QWidget& parent, const QString& title, const QString& words);

} // namespace tessa::qt
