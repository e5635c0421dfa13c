#pragma once
#include "qt/engine/QtViewContext.h"
#include "qt/page/QtPage.h"
#include "qt/page/QtPageLife.h"
#include "qt/questions/QtPageQuestions.h"

#include <QPointer>
#include <memory>

namespace tessa::qt {

class QtAwaited;
class QtLeaving;

/// The engine's page of a view, and what follows it for as long as it is there.
class QtViewPage {
public:
    explicit QtViewPage(const QtViewContext& view);
    /// The page ends as soon as it can: it may be in the middle of telling that it closed itself.
    ~QtViewPage();
    QtViewPage(const QtViewPage&) = delete;
    QtViewPage& operator=(const QtViewPage&) = delete;

    /// Makes what the page asks its user with, after whoever is to hear the page first has connected to it.
    void MakeQuestions();
    /// Takes back what it asks. True when it could see or hear its user.
    [[nodiscard]] bool EndQuestions();

    [[nodiscard]] QtPage& Page() const { return *m_page; }
    [[nodiscard]] QtAwaited& Awaited() const { return m_awaited; }
    [[nodiscard]] QtLeaving& Leaving() const { return m_leaving; }
    /// What the page asks for, and what covers it; nothing before it may ask, and at its end.
    [[nodiscard]] QtPageQuestions* Questions() const { return m_questions.get(); }
    [[nodiscard]] QtPageLife* Life() const { return m_life.get(); }
    /// Whether it asks its user something.
    [[nodiscard]] bool Asks() const;

private:
    const QtViewContext m_view;
    QPointer<QtPage> m_page;
    QtAwaited& m_awaited; ///< the page's, as the next one
    QtLeaving& m_leaving;
    std::unique_ptr<QtPageQuestions> m_questions;
    std::unique_ptr<QtPageLife> m_life;
};

} // namespace tessa::qt
