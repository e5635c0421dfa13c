#pragma once
#include "base/Text.h"

#include <functional>
#include <vector>

namespace tessa {

/// What a page says, as text, and marks in it. Belongs to its view.
class PageReading {
public:
    virtual ~PageReading() = default;

    /// Answers later, or never, with what the page says now: a line "u" with its address, then lines as `Passages` has
    /// them. A page that sleeps is not woken, and does not answer.
    virtual void ReadText(std::function<void(Text)> answer) = 0;
    /// The same at a glance, for who cannot wait: all lines are words, and what stands in a tree of its own is missing.
    virtual void GlanceAtText(std::function<void(Text)> answer) = 0;
    /// Marks these passages in the page, instead of those marked before, and brings that one into sight, counted from
    /// 0. Passages that are not there any more are left out. None takes the marks off.
    virtual void ShowPassages(const std::vector<Text>& passages, std::size_t first) = 0;
    /// Tells a page of the program's own something, which its script understands.
    virtual void Tell(TextView message) = 0;
};

} // namespace tessa
