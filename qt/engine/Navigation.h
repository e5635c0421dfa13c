#pragma once
#include "address/AddressTries.h"
#include "qt/engine/ViewContext.h"
#include "qt/engine/Whereabouts.h"
#include "qt/page/AddressUrl.h"

#include <QByteArray>
#include <QObject>
#include <optional>
#include <string>

class QWebEngineHistory;
class QWebEngineNewWindowRequest;

namespace tessa::qt {

class ViewPage;
class WebPage;

/// Takes a view where it is to go. What is asked for begins when the view has its turn; of several only the last does.
class Navigation final : public QObject {
public:
    /// `where` is followed and told where it goes; it outlives this.
    Navigation(const ViewContext& view, Whereabouts& where) : m_view(view), m_where(where) {}

    Outcome Navigate(TextView address);
    Outcome Stop();
    Outcome Refresh();
    /// Has the engine load the page anew, whether or not it has shown anything yet. There is one.
    Outcome Reload();
    /// Ends the document, whether or not its server has another, and loads its address anew.
    void Renew();
    Outcome GoBack();
    Outcome GoForward();
    /// See `BrowserView`.
    [[nodiscard]] std::string History() const;
    Outcome Restore(const std::string& history, TextView address);
    Outcome RestoreLater(const std::string& history, TextView address);
    /// Somebody looks at the view: whether that brings what was put off its turn.
    bool Look();

    /// The view has its page from now on, until that is taken away.
    void SetPage(ViewPage* page) { m_page = page; }
    /// Whether what was asked for is a blank page, which nobody sees and which has no process yet. It is told as if it
    /// were there, and made when somebody looks.
    bool StayBlank();
    [[nodiscard]] bool StaysBlank() const { return m_staysBlank; }
    /// Begins what was asked for, in the view's page.
    void Start();
    /// Has the page filled by another one, which has opened it.
    void TakeIn(QWebEngineNewWindowRequest& request, bool byPerson);
    /// Takes back what was asked for.
    void GiveUp();

    // What the engine tells of loads.

    /// The page goes to an address.
    void NoteNavigation(TextView address);
    void NoteSuccess();
    /// A load has failed: goes where it is tried again.
    void NoteFailure(const AddressTries::Failure& failure);
    /// Whether that failure is told nobody, because a second try follows.
    [[nodiscard]] bool TriesAgain(TextView address, bool unconnected) const {
        return m_tries.IsFirst(address, unconnected);
    }

private:
    /// Goes one page back or forward where the history allows it.
    Outcome Step(bool (QWebEngineHistory::*can)() const, void (QWebEngineHistory::*go)());
    void GoSilently(const QUrl& url);
    void TellUnbegun();
    void FollowTries();
    [[nodiscard]] WebPage* Page() const;

    const ViewContext m_view;
    Whereabouts& m_where;
    ViewPage* m_page = nullptr;
    AddressUrl m_wish;        ///< what was asked for, until it has begun
    QByteArray m_wishHistory; ///< where the page that is asked for has been
    AddressTries m_tries;
    bool m_looked = false;     ///< at the view, since something was asked for
    bool m_staysBlank = false; ///< what was asked for is told, and put off
};

} // namespace tessa::qt
