#pragma once

namespace tessa::qt {

/// What pages may load and play.
struct LoadOptions {
    bool images = true;
    bool animations = true;
    bool videos = true;
    bool sounds = true;
};

} // namespace tessa::qt
