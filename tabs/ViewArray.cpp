#include "tabs/ViewArray.h"

void ArrayView::Park() {
    if (m_parked) return;
    m_parked = true;
    Control->MoveLeft(kParkedLeft);
    Control->SetTabStop(false);
}

void ArrayView::Unpark() {
    m_parked = false;
    Control->SetTabStop(true);
}

void ArrayView::Place(const Rect& place) {
    m_parked = false;
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

void ViewArray::ParkAllBut(std::int32_t index) {
    for (auto& [each, view] : m_views) {
        if (each != index) view.Park();
    }
}
