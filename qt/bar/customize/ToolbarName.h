#pragma once
#include "base/Text.h"

#include <functional>
#include <optional>

class QString;
class QWidget;

namespace tessa::qt {

/// Asks for the name of a toolbar. `refusal` says why a name cannot be taken, nothing when it can. Nothing when the
/// user cancels.
[[nodiscard]] std::optional<Text> AskToolbarName(QWidget& parent, const QString& title, const Text& present,
                                                 const std::function<Text(TextView)>& refusal);

} // namespace tessa::qt
