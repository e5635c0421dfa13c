#include "qt/engine/QtViewPage.h"

#include "qt/engine/QtEngineHost.h"
#include "qt/engine/QtProfiles.h"
#include "qt/page/QtAwaited.h"
#include "qt/page/QtPage.h"
#include "qt/questions/QtLeaving.h"

namespace tessa::qt {

QtViewPage::QtViewPage(const QtViewContext& view)
    : m_view(view),
      m_page(view.services.profiles.MakePage(view.privacy)),
      m_awaited(*new QtAwaited(*m_page)),
      m_leaving(*new QtLeaving(*m_page)) {}

QtViewPage::~QtViewPage() {
    if (m_page) m_view.services.profiles.End(*m_page);
}

void QtViewPage::MakeQuestions() {
    const QtViewServices& services = m_view.services;
    const Privacy privacy = m_view.privacy;
    // What is decided for a private page ends with it.
    auto* kept = privacy == Privacy::Private ? nullptr : services.host.Permissions();
    m_questions = std::make_unique<QtPageQuestions>(*m_page, services.pageArea, services.profiles.Accepted(privacy),
                                                    services.profiles.DialogScheme(privacy),
                                                    services.profiles.External(privacy), kept);
    m_life = std::make_unique<QtPageLife>(*m_page);
}

bool QtViewPage::EndQuestions() {
    m_life.reset();
    const bool captured = m_questions && !m_questions->permissions.Captures().empty();
    m_questions.reset();
    return captured;
}

bool QtViewPage::Asks() const { return m_questions && (m_questions->bar->Asks() || !m_questions->covers.Empty()); }

} // namespace tessa::qt
