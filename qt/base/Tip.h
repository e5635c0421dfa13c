#pragma once
#include <QString>

namespace tessa::qt {

/// The tips of the program whose words come from pages and may be long.
namespace Tip {

/// A text, whatever it looks like, as a tool tip shows it. Its lines stay lines. A long one is broken at a blank, or
/// where an address may be broken. Left to itself a tip of several words becomes a narrow column.
[[nodiscard]] QString Html(const QString& text);

} // namespace Tip

} // namespace tessa::qt
