#pragma once
#include "qt/engine/ViewContext.h"
#include "qt/page/PageReader.h"
#include "qt/page/WebPage.h"
#include "qt/page/WebPageLife.h"
#include "qt/questions/WebPageQuestions.h"

#include <QPointer>
#include <memory>

namespace tessa::qt {

class Awaited;
class Leaving;

/// The engine's page of a view, and what follows it for as long as it is there.
class ViewPage {
public:
    explicit ViewPage(const ViewContext& view);
    /// The page ends as soon as it can: it may be in the middle of telling that it closed itself.
    ~ViewPage();
    ViewPage(const ViewPage&) = delete;
    ViewPage& operator=(const ViewPage&) = delete;

    /// Makes what the page asks its user with, after whoever is to hear the page first has connected to it.
    void MakeQuestions();
    /// Takes back what it asks. True when it could see or hear its user.
    [[nodiscard]] bool EndQuestions();

    [[nodiscard]] WebPage& Page() const { return *m_page; }
    [[nodiscard]] qt::Awaited& Awaited() const { return m_awaited; }
    [[nodiscard]] qt::Leaving& Leaving() const { return m_leaving; }
    /// What the page asks for, and what covers it; nothing before it may ask, and at its end.
    [[nodiscard]] WebPageQuestions* Questions() const { return m_questions.get(); }
    [[nodiscard]] WebPageLife* Life() const { return m_life.get(); }
    [[nodiscard]] PageReader& Reader() { return m_reader; }
    /// Whether it asks its user something.
    [[nodiscard]] bool Asks() const;

private:
    const ViewContext m_view;
    QPointer<WebPage> m_page;
    qt::Awaited& m_awaited; ///< the page's, as the next one
    qt::Leaving& m_leaving;
    std::unique_ptr<WebPageQuestions> m_questions;
    std::unique_ptr<WebPageLife> m_life;
    PageReader m_reader{*m_page};
};

} // namespace tessa::qt
