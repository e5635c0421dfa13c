#pragma once
#include "base/Text.h"

#include <cstddef>
#include <vector>

namespace tessa {

/// What the user may answer a page that wants to see a screen. That it always may is no answer: each time the user
/// chooses which one it is.
namespace ScreenAnswers {

enum class Meaning { Share, Block, AlwaysBlock };

/// The captions of the buttons. Some pages belong to no site that an answer could be kept for.
[[nodiscard]] std::vector<Text> Captions(bool mayRemember);

/// What the button of that number means, from 0. Any other number, as of a question that was dismissed, blocks.
[[nodiscard]] Meaning MeaningOf(std::size_t answer);

} // namespace ScreenAnswers

} // namespace tessa
