#pragma once
#include "settings/Drawing.h"

#include <QString>

namespace tessa::qt {

/// How this program draws pages. Chosen once, before there is a window or an engine.
namespace DrawingChoice {

/// To be called before there is an application object. When it is known that the processor alone draws, Qt is to leave
/// OpenGL alone. Setting it up takes a third of the time until the first page is asked for.
void Prepare(SettingsStorageFactory& settings);
/// Whether that is what Qt says because it was told so; nobody need know.
[[nodiscard]] bool IsExpected(const QString& message);

/// Chooses by the settings and by what this computer has; the application object exists by then. "software" or
/// "hardware" in the environment, as TESSAVIEW_DRAWING, holds before both.
void Choose(SettingsStorageFactory& settings);
/// Whether the processor alone draws.
[[nodiscard]] bool InSoftware();
/// Who does OpenGL here; empty when nobody does. Takes up to a tenth of a second.
[[nodiscard]] Text Renderer();

} // namespace DrawingChoice

} // namespace tessa::qt
