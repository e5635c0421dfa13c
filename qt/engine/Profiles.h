#pragma once
#include "base/Signal.h"
#include "pages/Certificates.h"
#include "pages/ExternalSchemes.h"
#include "platform/BrowserView.h"
#include "qt/engine/LoadOptions.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QWebEngineProfile;

namespace tessa::qt {

class DialogScheme;
class InstanceProfile;
class WebPage;
class Profile;
class StartPageScheme;

/// The profiles that pages store in, one for ordinary and one for private pages. Makes the pages of them.
/// Each comes into being with its first page; that of private pages ends with the last of them.
class Profiles final : public QObject {
public:
    /// Ordinary pages store in `ownProfile`, which outlives this. `startPage` makes the home page, in UTF-8.
    Profiles(InstanceProfile& ownProfile, std::function<std::string()> startPage);
    ~Profiles() override;

    /// A profile has come into being.
    Signal<void(QWebEngineProfile&)> Made;
    Signal<void(QWebEngineProfile&)> PrivateMade;
    Signal<void(WebPage&)> PageMade;

    [[nodiscard]] QWebEngineProfile* Get(Privacy privacy = Privacy::Ordinary);
    [[nodiscard]] qt::DialogScheme& DialogScheme(Privacy privacy);
    /// What the program itself shows as pages.
    [[nodiscard]] StartPageScheme& OwnPages(Privacy privacy);
    [[nodiscard]] WebPage* MakePage(Privacy privacy);
    /// Whether a page in that process is being printed, be it one that is done with.
    [[nodiscard]] bool PrintsIn(std::int64_t process) const;
    /// A view is done with its page, which ends as soon as it can.
    void End(WebPage& page);
    /// A view comes or goes, with a page or without one. What private pages have left behind stays as long as a view.
    void AddView(Privacy privacy);
    void RemoveView(Privacy privacy);
    /// Waits for the pages to end, and ends the profiles. No view may be left. False when a page does not end: then the
    /// profiles stay, and the process has to end before the engine does.
    bool Shutdown();

    /// The exceptions for refused certificates. Those of private views end with the last of them.
    [[nodiscard]] AcceptedCertificates& Accepted(Privacy privacy) { return AnswersFor(privacy).certificates; }
    /// What the user has answered about addresses for other programs; of private views likewise.
    [[nodiscard]] ExternalSchemes& External(Privacy privacy = Privacy::Ordinary) {
        return AnswersFor(privacy).programs;
    }
    /// What pages may load from now on; those that are there are told one by one.
    void SetLoadOptions(const LoadOptions& options);
    void TellLoadOptions(WebPage& page, Privacy privacy) const;
    [[nodiscard]] bool PlaysSounds() const { return m_loadOptions.sounds; }
    /// Marks the lines with which our script in the pages reports frames; new for every run.
    [[nodiscard]] const QString& Token() const { return m_token; }

private:
    /// What the user has answered for the run.
    struct Answers {
        AcceptedCertificates certificates;
        ExternalSchemes programs;
    };
    [[nodiscard]] Answers& AnswersFor(Privacy privacy) {
        return privacy == Privacy::Private ? m_privateAnswers : m_answers;
    }
    [[nodiscard]] Profile& For(Privacy privacy);
    std::unique_ptr<Profile> Make(const QString& folder, const QString& cacheFolder);
    void OnPrivatePageGone();

    InstanceProfile& m_ownProfile;
    std::function<std::string()> m_startPage;
    QString m_token;
    std::unique_ptr<Profile> m_profile, m_private;
    int m_privatePages = 0;
    int m_privateViews = 0;
    std::vector<QPointer<WebPage>> m_pages;  ///< all that were made; some may have gone
    std::vector<QPointer<WebPage>> m_ending; ///< pages that were there last when theirs ended
    LoadOptions m_loadOptions;
    Answers m_answers, m_privateAnswers;
};

} // namespace tessa::qt
