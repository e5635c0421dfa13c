#pragma once
#include "base/Signal.h"
#include "base/Text.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <vector>

namespace tessa {

/// What a question is about, when that is for the user to choose.
struct PageChoices {
    std::vector<Text> Names;
    std::size_t Chosen = 0;
};

/// Something that a page wants, to be decided by its user in a bar above it.
struct PageQuestion {
    static constexpr std::size_t kDismissed = static_cast<std::size_t>(-1);
    static constexpr std::size_t kRefused = 1; ///< the answer that refuses, of every question

    Text Key;     ///< a question with the key of one that waits is the same question
    Text Asker{}; ///< the site that asks, as an origin
    Text Words;
    std::vector<Text> Answers; ///< the captions of its buttons
    Text Remember;             ///< the caption of the box that makes the answer last; empty for none
    /// Asked anew whenever the user looks at them; without it there is nothing to choose.
    std::function<PageChoices()> Choices{};
    /// The user chooses one of those given last, from 0.
    std::function<void(std::size_t choice)> Choose{};
    /// Runs once: the number of the answer, from 0, or that there is none.
    std::function<void(std::size_t answer, bool remembers)> Answered;
};

/// The questions of one page, one at a time. A page can have but a few wait; further ones are dismissed at once.
class PageQuestions {
public:
    static constexpr std::size_t kMostWaiting = 6;
    /// So many may wait for the answer to one question.
    static constexpr std::size_t kMostWaiters = 50;

    ~PageQuestions();
    PageQuestions() = default;
    PageQuestions(const PageQuestions&) = delete;
    PageQuestions& operator=(const PageQuestions&) = delete;

    void Ask(PageQuestion question);
    /// The question that is to be shown; nothing when there is none.
    [[nodiscard]] const PageQuestion* Current() const { return m_waiting.empty() ? nullptr : &m_waiting.front().first; }
    /// The user answers the question that is shown, or dismisses it.
    void Answer(std::size_t answer, bool remembers);
    /// The page no longer asks for that.
    void Withdraw(TextView key);
    /// The page has gone, and all questions with it.
    void DismissAll();
    /// Another site has come, which may have asked already: the engine tells of questions and of addresses in no order.
    void DismissAllBut(TextView asker);

    /// A question that waits is put in other words; nothing else about it changes.
    void Reword(TextView key, Text words);

    /// The question that is shown has other words.
    Signal<void()> Reworded;
    /// Another question is to be shown, or none.
    Signal<void()> Changed;

private:
    using Waiters = std::vector<std::function<void(std::size_t, bool)>>;
    using Waiting = std::pair<PageQuestion, Waiters>;
    void Dismiss(const std::deque<Waiting>& gone);
    static void Tell(const Waiters& waiters, std::size_t answer, bool remembers);

    std::deque<Waiting> m_waiting;
};

} // namespace tessa
