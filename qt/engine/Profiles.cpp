#include "qt/engine/Profiles.h"

#include "qt/desktop/InstanceProfile.h"
#include "qt/engine/Profile.h"
#include "qt/page/WebPage.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <QUuid>
#include <algorithm>
#include <chrono>
#include <utility>

namespace tessa::qt {

namespace {
constexpr std::chrono::seconds kEndPatience{10};
constexpr std::chrono::milliseconds kEndStep{50};
} // namespace

Profiles::Profiles(InstanceProfile& ownProfile, std::function<std::string()> startPage)
    : m_ownProfile(ownProfile),
      m_startPage(std::move(startPage)),
      m_token(QUuid::createUuid().toString(QUuid::Id128)) {}

Profiles::~Profiles() = default;

std::unique_ptr<Profile> Profiles::Make(const QString& folder, const QString& cacheFolder) {
    auto profile = std::make_unique<Profile>(folder, cacheFolder, m_token, m_startPage);
    profile->SetLoadOptions(m_loadOptions);
    return profile;
}

Profile& Profiles::For(Privacy privacy) {
    if (privacy == Privacy::Private) {
        if (!m_private) {
            m_private = Make({}, {});
            PrivateMade(*m_private->Get());
        }
        return *m_private;
    }
    if (!m_profile) {
        m_ownProfile.Take();
        m_profile = Make(m_ownProfile.Folder(), m_ownProfile.CacheFolder());
        Made(*m_profile->Get());
    }
    return *m_profile;
}

QWebEngineProfile* Profiles::Get(Privacy privacy) { return For(privacy).Get(); }

qt::DialogScheme& Profiles::DialogScheme(Privacy privacy) { return For(privacy).Dialogs(); }

StartPageScheme& Profiles::OwnPages(Privacy privacy) { return For(privacy).OwnPages(); }

WebPage* Profiles::MakePage(Privacy privacy) {
    auto* page = new WebPage(Get(privacy), m_token);
    if (privacy == Privacy::Private) {
        ++m_privatePages;
        // Queued: the profile must outlive the page, which is not quite gone yet.
        connect(page, &QObject::destroyed, this, &Profiles::OnPrivatePageGone, Qt::QueuedConnection);
    }
    std::erase_if(m_pages, [](const auto& each) { return each.isNull(); });
    m_pages.emplace_back(page);
    PageMade(*page);
    return page;
}

bool Profiles::PrintsIn(std::int64_t process) const {
    return std::ranges::any_of(
        m_pages, [process](const auto& each) { return each && each->Prints() && each->renderProcessPid() == process; });
}

void Profiles::OnPrivatePageGone() {
    --m_privatePages;
    // What the private pages have left behind ends with the last of them, once its developer tools have gone too.
    QTimer::singleShot(0, this, [this] {
        if (m_privatePages > 0 || m_privateViews > 0) return;
        m_private.reset();
        m_privateAnswers = {};
    });
}

void Profiles::AddView(Privacy privacy) {
    if (privacy == Privacy::Private) ++m_privateViews;
}

void Profiles::RemoveView(Privacy privacy) {
    if (privacy == Privacy::Private) --m_privateViews;
}

void Profiles::End(WebPage& page) {
    std::erase_if(m_ending, [](const auto& each) { return each.isNull(); });
    m_ending.emplace_back(&page);
    page.End();
}

bool Profiles::Shutdown() {
    // Pages end later than their views; the profile must outlive them. One that is being printed takes its time.
    const auto ended = [this] {
        return std::ranges::all_of(m_ending, [](const auto& page) { return !page || page->PrintsForEver(); });
    };
    const QDeadlineTimer patience(kEndPatience);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    while (!ended() && !patience.hasExpired()) {
        QEventLoop wait;
        QTimer::singleShot(kEndStep, &wait, &QEventLoop::quit);
        wait.exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // The engine ends the program by a signal when a page goes that it prints, or the profile of that page.
    if (!std::ranges::all_of(m_ending, &QPointer<WebPage>::isNull)) {
        (void)m_private.release();
        (void)m_profile.release();
        return false;
    }
    m_private.reset();
    m_profile.reset();
    return true;
}

void Profiles::SetLoadOptions(const LoadOptions& options) {
    m_loadOptions = options;
    for (const auto* profile : {&m_profile, &m_private}) {
        if (*profile) (*profile)->SetLoadOptions(options);
    }
}

void Profiles::TellLoadOptions(WebPage& page, Privacy privacy) const {
    const auto& profile = privacy == Privacy::Private ? m_private : m_profile;
    if (profile) profile->TellLoadOptions(page, m_loadOptions);
}

} // namespace tessa::qt
