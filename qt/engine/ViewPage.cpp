#include "qt/engine/ViewPage.h"

#include "qt/engine/EngineHost.h"
#include "qt/engine/Profiles.h"
#include "qt/page/Awaited.h"
#include "qt/page/WebPage.h"
#include "qt/questions/Leaving.h"

namespace tessa::qt {

ViewPage::ViewPage(const ViewContext& view)
    : m_view(view),
      m_page(view.services.profiles.MakePage(view.privacy)),
      m_awaited(*new qt::Awaited(*m_page)),
      m_leaving(*new qt::Leaving(*m_page)) {}

ViewPage::~ViewPage() {
    if (m_page) m_view.services.profiles.End(*m_page);
}

void ViewPage::MakeQuestions() {
    const ViewServices& services = m_view.services;
    const Privacy privacy = m_view.privacy;
    // What is decided for a private page ends with it.
    auto* kept = privacy == Privacy::Private ? nullptr : services.host.Permissions();
    m_questions = std::make_unique<WebPageQuestions>(*m_page, services.pageArea, services.profiles.Accepted(privacy),
                                                     services.profiles.DialogScheme(privacy),
                                                     services.profiles.External(privacy), kept);
    m_life = std::make_unique<WebPageLife>(*m_page);
}

bool ViewPage::EndQuestions() {
    m_life.reset();
    const bool captured = m_questions && !m_questions->permissions.Captures().empty();
    m_questions.reset();
    return captured;
}

bool ViewPage::Asks() const { return m_questions && (m_questions->bar->Asks() || !m_questions->covers.Empty()); }

} // namespace tessa::qt
