#pragma once
#include "forms/StatusBar.h"

#include <cstdint>
#include <unordered_set>

namespace tessa {

/// Says in the status bar how many of the pages opened together have loaded, and offers to stop the rest. A few pages
/// load without a word. Owned by the group commands.
class LoadProgress {
public:
    /// How many pages are worth a word.
    static constexpr std::size_t kMany = 5;

    /// The bar outlives this object.
    explicit LoadProgress(StatusBar& sbStatus) : m_sbStatus(sbStatus) {}

    /// Pages opened from here on count anew, unless earlier ones still load.
    void Begin();
    /// The view of that index has been sent to a page.
    void Add(std::int32_t index);
    /// The view's page has loaded, or its tab is being closed. Nothing for a view that is not followed.
    void Done(std::int32_t index);
    /// The user wants no more of it: no page is followed any more.
    void Stop();

    /// Something else goes on that can be stopped, or does no more.
    void Hold();
    void Release();

    [[nodiscard]] bool Loading() const { return !m_loading.empty(); }

private:
    [[nodiscard]] bool Counts() const { return Loading() && m_all >= kMany; }
    void Show();
    [[nodiscard]] Text Count() const;

    StatusBar& m_sbStatus;
    std::unordered_set<std::int32_t> m_loading;
    std::size_t m_all = 0;
    int m_held = 0; ///< how much else goes on
};

} // namespace tessa
