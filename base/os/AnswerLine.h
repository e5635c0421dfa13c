#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace tessa {

/// The one line that a listener answers, as its bytes come.
class AnswerLine {
public:
    enum class State { Comes, Whole, TooLong };

    /// With its end the line has `longest` bytes at the most.
    explicit AnswerLine(std::size_t longest) : m_longest(longest) {}

    /// The next bytes. What comes behind the line is nobody's.
    State Add(std::string_view bytes);
    /// The line with its end, once it is whole.
    [[nodiscard]] const std::string& Line() const { return m_line; }

private:
    std::size_t m_longest;
    std::string m_line;
};

} // namespace tessa
