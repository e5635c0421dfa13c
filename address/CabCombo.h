#pragma once
#include "bar/Tool.h"

namespace tessa {

/// What the address box and the search box know of texts entered before: their list, newest first.
namespace CabCombo {

/// Completes what the user has typed from the box's list. What it adds is selected, so that typing on replaces it.
/// Called after every change of the text. `PrevText` is the text before the caret as the last call left it. Nothing is
/// completed while that does not grow.
void AutoComplete(Text& PrevText, ComboTool& Combo);

/// Puts an entry at the top of the list. The oldest one goes when there are more than `MaxItems`. Does nothing without
/// a box.
void AddFindEntry(TextView Entry, ComboTool* Tool, std::int32_t MaxItems);

/// How many entries each list keeps.
inline constexpr std::int32_t kHistoryLimit = 25;

/// Puts entries, newest first, back at the end of the list that they were cleared from. What was entered since stays
/// above them; the list keeps as many as it may, each once. Does nothing without a box.
void PutBack(const std::vector<Text>& Items, ComboTool* Tool);

} // namespace CabCombo

} // namespace tessa
