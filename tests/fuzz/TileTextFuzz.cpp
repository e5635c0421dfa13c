#include "tiles/TilePlaces.h"
#include "tiles/TileText.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace tessa {

namespace {

// Any text may stand where a layout should: what is read of it is sound, comes back from its own text, can be laid
// into any area, and loses pane after pane.
void CheckLayout(TextView text) {
    auto layout = TileLayoutIn(text);
    if (!layout) return;
    if (TileLayoutIn(TileText(*layout)) != layout) std::abort();
    const auto numbers = layout->Numbers();
    if (numbers.size() < 2 || numbers.size() > TileLayout::kMostPanes) std::abort();
    const Rect area{{0}, {0}, {static_cast<std::int32_t>(text.size() * 37 % 2000)}, {700}};
    const auto places = PlacesOf(*layout, numbers.front(), area, {.Header = 24});
    if (places.Panes.size() != (layout->Full ? 1 : numbers.size())) std::abort();
    for (const TileDivider& each : places.Dividers) MoveDivider(*layout, each, 100, 40);
    for (const std::int32_t number : numbers) {
        if (layout && !layout->Has(number)) std::abort();
        if (layout) layout = TileLayouts::Without(*std::move(layout), number);
    }
    if (layout) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckLayout(FromBytes(bytes));
    CheckLayout(u"h(1 " + FromBytes(bytes));
    return 0;
}

} // namespace tessa
