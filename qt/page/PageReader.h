#pragma once
#include "platform/PageReading.h"

namespace tessa::qt {

class WebPage;

/// Reads what one page says, and marks passages in it. A script does so in a world that the page cannot see. The script
/// comes into a page when it is first asked for, so that pages load without it.
class PageReader final : public PageReading {
public:
    /// The page outlives this object.
    explicit PageReader(WebPage& page) : m_page(page) {}

    void ReadText(std::function<void(Text)> answer) override;
    void GlanceAtText(std::function<void(Text)> answer) override;
    void ShowPassages(const std::vector<Text>& passages, std::size_t first) override;
    void Tell(TextView message) override;

private:
    [[nodiscard]] bool Awake() const;

    WebPage& m_page;
};

} // namespace tessa::qt
