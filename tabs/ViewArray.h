#pragma once
#include "platform/BrowserView.h"

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <vector>

namespace tessa {

/// Where a view that is not selected has its left edge: far outside any screen, alive.
inline constexpr Twips kParkedLeft{100000};

/// What may still bring the keyboard into a page, each once after the page itself began to load.
struct Focusing {
    bool Address = false;  ///< it has another address
    bool Document = false; ///< its document is complete
    bool Frame = true;     ///< a frame of it is
};

/// One element of the array: a page view and what the program keeps with it.
struct ArrayView {
    std::unique_ptr<BrowserView> Control;
    /// Whether the page's history allows going back: "1" or "0".
    Text Tag = u"0";
    /// Whether it allows going forward: 1 or 0.
    int ForwardFlag = 0;
    tessa::Privacy Privacy = tessa::Privacy::Ordinary;
    Focusing MayFocus;
    /// How often the user had typed into the window's boxes when its page began to load.
    std::size_t TypedBefore = 0;

    /// Moves the view out of sight and out of the keyboard's way; nothing when it is there already.
    void Park();
    /// Puts the view in the keyboard's way again. Where it lies is for `Place`, which may come much later.
    void Unpark();
    /// Lays the view over the page area.
    void Place(const Rect& place);

private:
    friend class ViewArray;
    void ComeIntoSight();

    std::int32_t m_index = 0;
    std::vector<std::int32_t>* m_inSight = nullptr; ///< the array's; nothing for a view of no array
    bool m_parked = false;
};

/// The view array `Browser`. Element 1 exists as long as the array; others come and go, and an index is never used
/// twice. Owns its views, which report to the events given.
class ViewArray {
public:
    /// The highest index: what is higher does not fit into 16 bits, and no index wraps around.
    static constexpr std::int32_t kLastIndex = std::numeric_limits<std::int16_t>::max();

    /// `views` and `events` must outlive the array.
    ViewArray(BrowserViewFactory& views, BrowserViewEvents& events);
    ViewArray(const ViewArray&) = delete;
    ViewArray& operator=(const ViewArray&) = delete;

    /// Makes element `index`, parked. Nothing when the index is in use or above the highest, or when the engine has no
    /// view to give.
    ArrayView* Load(std::int32_t index, Privacy privacy = Privacy::Ordinary);
    [[nodiscard]] ArrayView* Find(std::int32_t index);
    /// Destroys an element. Element 1 is part of the window and stays.
    void Unload(std::int32_t index);
    /// Destroys every element, at the end of the window. No more can be made.
    void UnloadAll();
    /// Parks every view but that one and those beside it. Costs what is in sight, not what there is.
    void ParkAllBut(std::int32_t index, const std::vector<std::int32_t>& beside = {});

    /// The views that may be seen: the one in front and those beside it.
    [[nodiscard]] const std::vector<std::int32_t>& InSight() const { return m_inSight; }

private:
    BrowserViewFactory& m_factory;
    BrowserViewEvents& m_events;
    std::map<std::int32_t, ArrayView> m_views;
    std::vector<std::int32_t> m_inSight; ///< every view that is not parked is among these
    bool m_ended = false;
};

} // namespace tessa
