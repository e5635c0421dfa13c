#include "commands/keys/WindowKeys.h"

#include "commands/CommandTable.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr std::int32_t kModifiers = Keys::kShift | Keys::kCtrl | Keys::kAlt;

constexpr std::array kWindowKeys{
    WindowKey{{Keys::kTab, Keys::kCtrl}, false, u"mnuNextBrowserTab"_tool},
    WindowKey{{Keys::kTab, Keys::kCtrl | Keys::kShift}, false, u"mnuPreviousBrowserTab"_tool},
    WindowKey{{'D', Keys::kAlt}, true, u"cboAddress"_tool, u"bndAddress"_band},
    WindowKey{{'R', Keys::kAlt}, true, u"cboSearch"_tool, u"bndSearch"_band},
};

} // namespace

namespace WindowKeys {

std::span<const WindowKey> All() { return kWindowKeys; }

const WindowKey* Find(KeyStroke key) {
    const std::int32_t held = key.Shift & kModifiers;
    const auto* found = std::ranges::find_if(kWindowKeys, [&](const WindowKey& each) {
        const std::int32_t counting = each.MoreMayBeHeld ? each.Key.Shift : kModifiers;
        return each.Key.KeyCode == key.KeyCode && (held & counting) == each.Key.Shift;
    });
    return found == kWindowKeys.end() ? nullptr : found;
}

} // namespace WindowKeys

namespace ToolKeys {

std::vector<KeyStroke> Fixed(const CommandBar& bar, TextView tool) {
    std::vector<KeyStroke> keys;
    const auto add = [&](KeyStroke key) {
        if (!bar.Combinations.IsChosen(key) && std::ranges::count(keys, key) == 0) keys.push_back(key);
    };
    for (const Shortcut& each : ShortcutsOfOthers()) {
        if (each.ToolName == tool) add(each.Key);
    }
    for (const WindowKey& each : WindowKeys::All()) {
        if (TextView(each.Tool) == tool) add(each.Key);
    }
    return keys;
}

std::optional<KeyStroke> Shown(const CommandBar& bar, TextView tool) {
    std::vector<KeyStroke> keys = bar.Combinations.Of(tool);
    if (keys.empty()) keys = Fixed(bar, tool);
    return keys.empty() ? std::nullopt : std::optional(keys.front());
}

Text ShownWords(const CommandBar& bar, TextView tool) {
    const auto key = Shown(bar, tool);
    return key ? KeyWords::Shown(*key) : Text();
}

} // namespace ToolKeys

} // namespace tessa
