#include "tabs/ViewArray.h"

#include <algorithm>
#include <utility>

namespace tessa {

void ArrayView::Park() {
    if (m_parked) return;
    m_parked = true;
    Control->MoveLeft(kParkedLeft);
    Control->SetTabStop(false);
}

void ArrayView::ComeIntoSight() {
    if (std::exchange(m_parked, false) && m_inSight) m_inSight->push_back(m_index);
}

void ArrayView::Unpark() {
    ComeIntoSight();
    Control->SetTabStop(true);
}

void ArrayView::Place(const Rect& place) {
    ComeIntoSight();
    Control->Move(place);
}

ViewArray::ViewArray(BrowserViewFactory& views, BrowserViewEvents& events) : m_factory(views), m_events(events) {
    Load(1);
}

ArrayView* ViewArray::Load(std::int32_t index, Privacy privacy) {
    if (m_ended || index < 1 || index > kLastIndex || m_views.contains(index)) return nullptr;
    auto control = m_factory.Create(static_cast<std::int16_t>(index), m_events, privacy);
    if (!control) return nullptr;
    ArrayView& view = m_views[index];
    view.Control = std::move(control);
    view.Privacy = privacy;
    view.m_index = index;
    view.m_inSight = &m_inSight;
    view.Park();
    return &view;
}

ArrayView* ViewArray::Find(std::int32_t index) {
    const auto found = m_views.find(index);
    return found == m_views.end() ? nullptr : &found->second;
}

void ViewArray::Unload(std::int32_t index) {
    if (index != 1) m_views.erase(index);
}

void ViewArray::UnloadAll() {
    m_ended = true;
    m_views.clear();
}

void ViewArray::ParkAllBut(std::int32_t index, const std::vector<std::int32_t>& beside) {
    // Parking may bring another one into sight.
    for (const std::int32_t each : std::exchange(m_inSight, {})) {
        if (each == index || std::ranges::find(beside, each) != beside.end())
            m_inSight.push_back(each);
        else if (auto* view = Find(each))
            view->Park();
    }
}

} // namespace tessa
