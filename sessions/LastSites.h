#pragma once
#include "sessions/CameBack.h"
#include "tabs/TabSet.h"

#include <vector>

namespace tessa {

/// The addresses that were open when the program ended, which the next start opens again.
namespace LastSites {

/// The addresses of the open tabs in their order, without those of private tabs and what cannot come back.
[[nodiscard]] std::vector<Text> Open(const TabStrip& pcPage, ViewArray& Browser);
/// Opens them, the first one in the first tab, and notes with `cameBack` that no user has. An address that is not to be
/// trusted is left out.
void Reopen(std::vector<Text> sites, TabSet& tabs, ViewArray& Browser, CameBack& cameBack);

} // namespace LastSites

} // namespace tessa
