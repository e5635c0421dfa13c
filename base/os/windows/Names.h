#pragma once
#include <functional>
#include <string>
#include <windows.h>

namespace tessa {

/// Says what lies in a folder, one after another, but for the folder itself and the one above.
void EachIn(const std::string& folder, const std::function<void(const std::string& name, DWORD attributes)>& say);

} // namespace tessa
