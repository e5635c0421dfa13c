#pragma once
#include "settings/Drawing.h"

/// How this program draws pages. Chosen once, before there is a window or an engine.
namespace QtDrawing {

/// Chooses by the settings and by what this computer has; the application object exists by then. "software" or
/// "hardware" in the environment, as TESSAVIEW_DRAWING, holds before both.
void Choose(SettingsStorageFactory& settings);
/// Whether the processor alone draws.
[[nodiscard]] bool InSoftware();
/// Who does OpenGL here; empty when nobody does. Takes up to a tenth of a second.
[[nodiscard]] Text Renderer();

} // namespace QtDrawing
