#pragma once
#include "base/Text.h"

namespace tessa {

/// What a page that lies on this computer wants a file for.
enum class LocalUse {
    Page,  ///< to be shown instead of the page, or in a tab of its own
    Frame, ///< to be shown in a frame of the page, which can read it
    Part,  ///< a picture, a style, a script, a font, a sound or a video
    Data,  ///< anything that scripts read
};

/// Whether a page on this computer may load a file, by their absolute paths. For the engine all files are one site: a
/// script may read whatever it gets hold of. A page that somebody was sent must not read the files around it. A page
/// that was saved with its parts shows them, frames too. A page with pictures and styles beside it shows these, unless
/// they lie in hidden folders. `page` is empty when it is not known.
[[nodiscard]] bool MayLoadLocal(TextView page, TextView file, LocalUse use);

} // namespace tessa
