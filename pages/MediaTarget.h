#pragma once
#include <cstdint>
#include <vector>

namespace tessa {

/// A view that is open.
struct MediaView {
    std::int32_t Index = 0;
    bool Heard = false;
};

/// The view that the keys for play and pause are for. That is the audible one, the one in front first. Otherwise it is
/// the one that had them last, else the view in front.
class MediaTarget {
public:
    /// Its index, of those that are open; 0 for none. `front` may be open or not.
    [[nodiscard]] std::int32_t Choose(const std::vector<MediaView>& open, std::int32_t front);

private:
    std::int32_t m_last = 0;
};

} // namespace tessa
