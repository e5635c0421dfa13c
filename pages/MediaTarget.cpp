#include "pages/MediaTarget.h"

#include <algorithm>

namespace tessa {

std::int32_t MediaTarget::Choose(const std::vector<MediaView>& open, std::int32_t front) {
    const auto shown = std::ranges::find(open, front, &MediaView::Index);
    const auto heard = shown != open.end() && shown->Heard ? shown : std::ranges::find(open, true, &MediaView::Heard);
    if (heard != open.end()) m_last = heard->Index;
    if (std::ranges::find(open, m_last, &MediaView::Index) != open.end()) return m_last;
    return shown != open.end() ? front : 0;
}

} // namespace tessa
