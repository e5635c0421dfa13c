#include "settings/Drawing.h"

#include "base/Address.h"
#include "base/ResumeNext.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr TextView kSoftwareWord = u"software", kHardwareWord = u"hardware";

// Of Mesa, of the engine, of X servers without a driver, of virtual machines without one.
constexpr std::array<TextView, 6> kSoftwareRenderers{u"llvmpipe",    u"softpipe",         u"swrast",
                                                     u"swiftshader", u"software rasteri", u"basic render"};

TextView WordOfWay(DrawingWay way) { return way == DrawingWay::Software ? kSoftwareWord : kHardwareWord; }

std::optional<DrawingWay> WayOfWord(TextView word) {
    if (word == kSoftwareWord) return DrawingWay::Software;
    return word == kHardwareWord ? std::optional(DrawingWay::Graphics) : std::nullopt;
}

// "software: " or "hardware: ", and the surroundings in which that was found out.
Text Known(DrawingWay way, TextView surroundings) { return Text(WordOfWay(way)) + u": " + Text(surroundings); }

std::optional<DrawingWay> Remembered(const Drawing::Machine& machine, const InternetSettings& kept) {
    const Text known = kept.DrawingKnown.Get();
    for (const DrawingWay way : {DrawingWay::Graphics, DrawingWay::Software}) {
        if (known == Known(way, machine.Surroundings)) return way;
    }
    return std::nullopt;
}

} // namespace

std::optional<DrawingWay> Drawing::KnownWay(const Machine& machine, SettingsStorageFactory& settings) {
    if (const auto commanded = WayOfWord(machine.Command)) return *commanded;
    const InternetSettings kept(settings);
    switch (kept.Get().drawing) {
    case DrawingWish::Graphics:
        return DrawingWay::Graphics;
    case DrawingWish::Software:
        return DrawingWay::Software;
    case DrawingWish::ByItself:
        break;
    }
    return machine.HasProcessor ? Remembered(machine, kept) : DrawingWay::Software;
}

DrawingWay Drawing::Choose(const Machine& machine, SettingsStorageFactory& settings) {
    if (const auto known = KnownWay(machine, settings)) return *known;
    const Text renderer = machine.Renderer ? machine.Renderer() : Text();
    const bool software = renderer.empty() || IsSoftware(renderer);
    const DrawingWay way = software ? DrawingWay::Software : DrawingWay::Graphics;
    ResumeNext(InternetSettings(settings).DrawingKnown.Set(Known(way, machine.Surroundings)));
    return way;
}

bool Drawing::IsSoftware(TextView renderer) {
    const Text name = InSmallLetters(renderer);
    return std::ranges::any_of(kSoftwareRenderers, [&](TextView each) { return name.find(each) != Text::npos; });
}

} // namespace tessa
