#pragma once
#include "bar/KeyStroke.h"

namespace tessa {

/// Which combinations a tool may have, whoever gives them: the user in the dialog, or a layout file.
namespace KeyRules {

/// Why no tool may have a combination, as a sentence for the user; empty when one may.
[[nodiscard]] Text Refusal(KeyStroke key);

} // namespace KeyRules

} // namespace tessa
