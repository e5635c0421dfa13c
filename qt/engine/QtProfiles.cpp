#include "qt/engine/QtProfiles.h"

#include "qt/desktop/QtInstanceProfile.h"
#include "qt/engine/QtProfile.h"
#include "qt/page/QtPage.h"

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

QtProfiles::QtProfiles(QtInstanceProfile& ownProfile, std::function<std::string()> startPage)
    : m_ownProfile(ownProfile),
      m_startPage(std::move(startPage)),
      m_token(QUuid::createUuid().toString(QUuid::Id128)) {}

QtProfiles::~QtProfiles() = default;

std::unique_ptr<QtProfile> QtProfiles::Make(const QString& folder, const QString& cacheFolder) {
    auto profile = std::make_unique<QtProfile>(folder, cacheFolder, m_token, m_startPage);
    profile->SetLoadOptions(m_loadOptions);
    return profile;
}

QtProfile& QtProfiles::For(Privacy privacy) {
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

QWebEngineProfile* QtProfiles::Get(Privacy privacy) { return For(privacy).Get(); }

QtDialogScheme& QtProfiles::DialogScheme(Privacy privacy) { return For(privacy).Dialogs(); }

QtStartPage& QtProfiles::OwnPages(Privacy privacy) { return For(privacy).OwnPages(); }

QtPage* QtProfiles::MakePage(Privacy privacy) {
    auto* page = new QtPage(Get(privacy), m_token);
    if (privacy == Privacy::Private) {
        ++m_privatePages;
        // Queued: the profile must outlive the page, which is not quite gone yet.
        connect(page, &QObject::destroyed, this, &QtProfiles::OnPrivatePageGone, Qt::QueuedConnection);
    }
    return page;
}

void QtProfiles::OnPrivatePageGone() {
    --m_privatePages;
    // What the private pages have left behind ends with the last of them, once its developer tools have gone too.
    QTimer::singleShot(0, this, [this] {
        if (m_privatePages > 0 || m_privateViews > 0) return;
        m_private.reset();
        m_privateAnswers = {};
    });
}

void QtProfiles::AddView(Privacy privacy) {
    if (privacy == Privacy::Private) ++m_privateViews;
}

void QtProfiles::RemoveView(Privacy privacy) {
    if (privacy == Privacy::Private) --m_privateViews;
}

void QtProfiles::End(QtPage& page) {
    std::erase_if(m_ending, [](const auto& each) { return each.isNull(); });
    m_ending.emplace_back(&page);
    page.End();
}

void QtProfiles::Shutdown() {
    // Pages end later than their views; the profile must outlive them. One that is being printed takes its time.
    const auto ended = [this] { return std::ranges::all_of(m_ending, &QPointer<QtPage>::isNull); };
    const QDeadlineTimer patience(kEndPatience);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    while (!ended() && !patience.hasExpired()) {
        QEventLoop wait;
        QTimer::singleShot(kEndStep, &wait, &QEventLoop::quit);
        wait.exec();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    m_private.reset();
    m_profile.reset();
}

void QtProfiles::SetLoadOptions(const QtLoadOptions& options) {
    m_loadOptions = options;
    for (const auto* profile : {&m_profile, &m_private}) {
        if (*profile) (*profile)->SetLoadOptions(options);
    }
}

void QtProfiles::TellLoadOptions(QtPage& page, Privacy privacy) const {
    const auto& profile = privacy == Privacy::Private ? m_private : m_profile;
    if (profile) profile->TellLoadOptions(page, m_loadOptions);
}

} // namespace tessa::qt
