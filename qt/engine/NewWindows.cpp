#include "qt/engine/NewWindows.h"

#include "qt/base/Strings.h"
#include "qt/blocking/BlockedPages.h"
#include "qt/page/WebPage.h"
#include "qt/questions/Permissions.h"

#include <QUrl>
#include <QWebEngineNewWindowRequest>

namespace tessa::qt {

NewWindows::Taker* NewWindows::Find(const BrowserView* view) const {
    const auto found = m_takers.find(view);
    return found == m_takers.end() ? nullptr : found->second;
}

void NewWindows::Open(QWebEngineNewWindowRequest& request, const Opener& opener) const {
    const QUrl target = request.requestedUrl();
    const bool byPerson = request.isUserInitiated();
    if (m_blocked && m_blocked->StopsPopup(target, opener.page)) return;
    if (!byPerson && !opener.permissions.MayOpenPopup(target)) return;
    // What is for another program needs no tab here.
    if (opener.page.HandOver(target, byPerson, true)) return;
    // What the engine calls a background tab was clicked with the key for the other way, or the middle button.
    const bool other = request.destination() == QWebEngineNewWindowRequest::InNewBackgroundTab;
    auto* supplied = opener.events.NewWindow2(opener.index, other ? NewWindowPlace::OtherWay : NewWindowPlace::AsSet);
    if (!supplied) return;
    Taker* taker = Find(supplied);
    // A page on this computer could read the file that it opens, so it gets no hold of its window.
    if (!taker || opener.page.url().isLocalFile()) {
        ResumeNext(supplied->Navigate(FromQt(target.toString(QUrl::FullyEncoded))));
        return;
    }
    // Its click is good for the window that was opened with it, too, if that is no other's.
    const bool own = target.isEmpty() || target.scheme() == u"about" || opener.page.IsOwnOrigin(target);
    taker->TakeIn(request, own && byPerson);
    if (WebPage* opened = taker->Page(); opened && m_blocked) m_blocked->FollowOpened(*opened, opener.page);
}

} // namespace tessa::qt
