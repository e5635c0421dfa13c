#include "base/os/AnswerLine.h"

#include <algorithm>

namespace tessa {

AnswerLine::State AnswerLine::Add(std::string_view bytes) {
    m_line += bytes;
    const std::size_t end = m_line.find('\n');
    if (std::min(end, m_line.size()) >= m_longest) return State::TooLong;
    if (end == std::string::npos) return State::Comes;
    m_line.resize(end + 1);
    return State::Whole;
}

} // namespace tessa
