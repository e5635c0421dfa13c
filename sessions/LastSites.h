#pragma once
#include "sessions/CameBack.h"
#include "tabs/TabGroups.h"
#include "tiles/Tiles.h"

#include <vector>

namespace tessa {

/// The addresses that were open when the program ended, which the next start opens again.
namespace LastSites {

/// The addresses of the open tabs in their order, without those of private tabs and what cannot come back.
[[nodiscard]] std::vector<Text> Open(const TabStrip& pcPage, ViewArray& Browser);
/// Which of them lie side by side, see `TileText`; the first address is 1.
[[nodiscard]] std::vector<Text> OpenTiles(const TabStrip& pcPage, ViewArray& Browser, const Tiles& tiles);
/// Which of them are in groups and pinned, see `KeptGroupsText`.
[[nodiscard]] Text OpenGroups(const TabStrip& pcPage, ViewArray& Browser, const TabGroups& groups);
/// What their user has called each of them, empty for none; no names at all where there is none.
[[nodiscard]] std::vector<Text> OpenNames(const TabStrip& pcPage, ViewArray& Browser);
/// Gives these names to the tabs of these views. They belong together by their places.
void Name(const std::vector<Text>& names, const std::vector<std::int32_t>& indexes, TabStrip& pcPage);
/// Opens them, the first one in the first tab, and notes with `cameBack` that no user has. An address that is not to be
/// trusted is left out. Answers with the index of the view for each; 0 for none.
std::vector<std::int32_t> Reopen(std::vector<Text> sites, TabSet& tabs, ViewArray& Browser, CameBack& cameBack);

} // namespace LastSites

} // namespace tessa
