#pragma once
#include "platform/SettingsStorage.h"
#include "settings/InternetSettings.h"

#include <functional>
#include <optional>

namespace tessa {

/// Who draws the pages: the graphics processor, or the processor alone. Where OpenGL is done in software, drawing
/// without it costs a fifth.
enum class DrawingWay { Graphics, Software };

namespace Drawing {

/// The computer at this start.
struct Machine {
    /// What the answer depends on: driver, display, host. Any text; only whether it is the same counts.
    Text Surroundings{};
    /// Whether there is a graphics processor that a driver may use. Without one nobody is asked.
    bool HasProcessor = false;
    /// The name of who does OpenGL here; empty when nobody does. Asked when nothing else tells, because it takes long.
    std::function<Text()> Renderer{};
    /// "software" or "hardware", which hold whatever else says; any other text says nothing.
    Text Command{};
};

/// How pages are drawn, as far as that is known without asking who does OpenGL, which takes long.
[[nodiscard]] std::optional<DrawingWay> KnownWay(const Machine& machine, SettingsStorageFactory& settings);

/// How pages are drawn from now on. What was found out is kept in the settings and asked anew in other surroundings.
[[nodiscard]] DrawingWay Choose(const Machine& machine, SettingsStorageFactory& settings);

/// Whether a renderer of that name uses the processor alone.
[[nodiscard]] bool IsSoftware(TextView renderer);

} // namespace Drawing

} // namespace tessa
