#pragma once
#include "base/Signal.h"
#include "downloads/PageSaves.h"
#include "pages/PageCaptures.h"
#include "pages/PageQuestions.h"
#include "pages/PopupRule.h"
#include "pages/SitePermissions.h"
#include "qt/base/EngineVersions.h"
#include "qt/questions/ScreenChoice.h"

#include <QObject>
#include <QUrl>
#include <functional>
#include <optional>
#include <vector>

namespace tessa::qt {

class WebPage;

/// Has the user decide what one page may do. That is what the engine asks for, and which screen or window the page is
/// shown. It is also windows that it opens by itself, and files that it saves one after another.
class Permissions final : public QObject {
    Q_OBJECT

public:
    /// All outlive this object. `kept` says what was decided for good; nothing for a page of which nothing is kept.
    Permissions(WebPage& page, PageQuestions& questions, SitePermissions* kept);
    ~Permissions() override;

    /// The page wants to open a window without a click of its user. Answers whether it may at once. Else asks, and
    /// calls `OpenPopup` when the user allows it later.
    [[nodiscard]] bool MayOpenPopup(const QUrl& address);
    /// The page saves a file. Answers whether it may at once; else asks, and fetches the file when the user allows it
    /// later.
    [[nodiscard]] bool MaySave(const QUrl& address);

    /// A decision about the page's site was forgotten: the engine is to ask again.
    void Forget(const SiteDecision& forgotten);

    /// The program itself replaces the page, of which the engine does not tell beforehand.
    void BeginNavigation() { ChangeCaptures(&PageCaptures::BeginNavigation); }
    /// Says what the page may see and hear of its user; empty for nothing.
    [[nodiscard]] Text Captures() const;
    /// That has changed.
    Signal<void()> CapturesChanged;
    /// Opens a window that was held back.
    Signal<void(TextView address)> OpenPopup;

private:
    void OnPermission(const EngineVersions::PermissionRequest& request);
    void OnScreen(const EngineVersions::ScreenRequest& request);
    void OnScreenAnswer(const QUrl& origin, std::size_t answer);
    /// Whether the user has just chosen what that site is to see.
    [[nodiscard]] bool TakeShared(const QUrl& origin);
    void Decide(const QUrl& origin, SitePermission permission, const std::function<void(bool)>& decided);
    [[nodiscard]] std::optional<bool> Decided(const QUrl& origin, SitePermission permission) const;
    void Remember(const QUrl& origin, SitePermission permission, bool allowed);
    void AskPopup();
    void FollowCaptures();
    void ChangeCaptures(const std::function<void(PageCaptures&)>& change);
    void OnPopupAnswer(const QUrl& origin, std::size_t answer);
    /// Ends what was answered for one visit of a site that the page has left.
    void ForgetOnce();
    void OnPersonNavigated();
    void OnAddress(const QUrl& url);

    WebPage& m_page;
    PageQuestions& m_questions;
    SitePermissions* m_kept;
    PageSaves m_saves;
    PopupRule m_popups;
    PageCaptures m_captures;
    std::vector<SiteDecision> m_once;     ///< not to be remembered, though the engine does
    std::optional<ScreenChoice> m_screen; ///< while the user chooses
    Text m_shared;                        ///< the site that is given a screen
    Text m_site;                          ///< of the page shown
};

} // namespace tessa::qt
