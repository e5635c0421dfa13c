#pragma once
#include "base/Signal.h"
#include "pages/PersonNote.h"
#include "qt/page/PageDialog.h"

#include <QByteArray>
#include <QEventLoop>
#include <QPageLayout>
#include <QPageRanges>
#include <QPointer>
#include <QSet>
#include <QTimer>
#include <QUrl>
#include <QWebEnginePage>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tessa::qt {

/// Who in a page wants something.
struct Asker {
    QUrl page;           ///< the page shown
    bool frame = false;  ///< a frame in it, or nobody can tell that it was not one
    QUrl frameOrigin;    ///< where that frame is from; empty when nobody can tell
    bool person = false; ///< a person has clicked a link
};

/// What became of a page that was to be printed.
struct PrintedPage {
    QByteArray pdf{};     ///< empty when that failed
    bool answered = true; ///< in time
};

/// An engine page that reports what only its virtual functions tell.
class WebPage final : public QWebEnginePage {
    Q_OBJECT

public:
    /// `token` marks the console lines with which frames report themselves.
    WebPage(QWebEngineProfile* profile, QString token);

    /// A host as it is shown: in the form that cannot be mistaken for another, with an unusual port.
    [[nodiscard]] static QString HostAndPort(const QUrl& url);
    /// Scheme, host and port, which together are a site of its own; empty for an address without a host.
    [[nodiscard]] static QString SiteOf(const QUrl& url);
    /// The address of the document shown, while another may be on its way.
    [[nodiscard]] QUrl ShownAddress() const;
    /// Whether what comes from that origin may speak for the page: frames from elsewhere and in a sandbox may not.
    [[nodiscard]] bool IsOwnOrigin(const QUrl& origin) const;
    /// What marks the lines with which scripts of ours report.
    [[nodiscard]] const QString& Token() const { return m_token; }
    /// Whether the page is about to show what is fetched from there.
    [[nodiscard]] bool Awaits(const QUrl& url) const { return !m_awaited.isEmpty() && m_awaited == url; }

    /// Whether it is about to show anything else than it does.
    [[nodiscard]] bool AwaitsAny() const { return !m_awaited.isEmpty(); }
    /// The program is about to load what lies there. Until that has come, the engine may call the page by it already.
    void Await(const QUrl& url);
    /// Whether the navigation that began last is one on which another has been led.
    [[nodiscard]] bool Redirects() const { return m_redirects; }

    /// Hands an address that another program is for over, or asks about it; false for what pages show. A mail is begun
    /// only where a person has clicked.
    bool HandOver(const QUrl& url, bool clicked, bool isMainFrame);

    /// Whether the user has typed or chosen something in the page, or in its frames, that was not sent.
    [[nodiscard]] bool HoldsInput() const { return !m_input.isEmpty(); }
    /// Whether that is a text, of which more is lost than of a search.
    [[nodiscard]] bool HoldsText() const { return !m_texts.isEmpty(); }
    /// Has the page look whether it still holds that. One that sends by a script empties its fields later, and tells
    /// nobody. Both are right by the time that a script has answered which is run after this.
    void LookAtInput();

    using DialogAnswer = std::function<void(const PageDialogAnswer&)>;
    /// The page wants a dialog for which the whole engine waits. Our script could not stand in for it, or it is the
    /// question before a page is left. The listener answers later, or never. Without one the answer is no.
    Signal<void(const PageDialogRequest&, const DialogAnswer& answer)> DialogWanted;
    /// A person has clicked or typed into the page.
    void NotePerson();
    /// A person has opened the page from one that may speak for it.
    void NoteOpener() { m_opener.Make(); }
    /// Whether a person wants it printed: has acted in it, or opened it for that.
    [[nodiscard]] bool TakePrintWish() { return m_person.Take() || m_opener.Take(); }
    /// Whether a person has, since the document came. Only then may a page hold its user.
    [[nodiscard]] bool PersonWasHere() const { return m_personWasHere; }
    /// A document wants to hold its user. The listener may say whether he leaves; else he is asked.
    Signal<void(std::optional<bool>& leaves)> HoldWanted;
    /// It is about to go on to another address, not because its user has typed that. A listener may say that it does
    /// not stay for it; then it closes.
    Signal<void(const QUrl& url, bool& stays)> LeadsOn;
    /// Whether a person has, since this was asked last: what a page does beyond that it does by itself.
    [[nodiscard]] bool TakePerson() { return m_person.Take(); }
    /// Runs a script of ours, in a world that the page cannot see. A page that ends meanwhile waits for the answer, but
    /// not for long.
    void Ask(const QString& script, std::function<void(const QVariant&)> answered);
    /// Ends with the page, before the engine's part of it does, which answers what was asked while it ends.
    [[nodiscard]] std::weak_ptr<const void> Whole() const { return m_asked; }
    /// Prints the page once it has loaded; all of its pages of paper unless some are named. The engine cannot be told
    /// to stop: a page that takes longer than that stays until it is done.
    void Print(const QPageLayout& layout, std::chrono::milliseconds patience,
               const std::function<void(const PrintedPage& printed)>& printed, const QPageRanges& ranges = {});
    /// Whether it is being printed, also where nobody waits for that any more. The engine does not bear that the page
    /// then goes to another site, sleeps, or loses its process.
    [[nodiscard]] bool Prints() const { return m_printing > 0; }
    /// Stops what it loads.
    void Halt();
    /// Deletes the page as soon as it waits for nothing any more: an answer, or that it is printed.
    void End();
    /// Whether nobody needs the page any more, though it may still be there.
    [[nodiscard]] bool Ended() const { return m_ending; }
    /// Whether it is still being printed although nobody waits for that any more.
    [[nodiscard]] bool PrintsForEver() const { return m_overdue > 0; }

Q_SIGNALS:
    /// A navigation begins, of the page or of a frame inside it.
    void NavigationRequested(const QUrl& url, bool topLevel);
    /// A person, not the page, goes to another page.
    void PersonNavigated();
    /// A link of the home page was clicked that is for the program and not for the engine.
    void StartLinkFollowed(const QUrl& url);
    /// The script of a page of the program's own asks the program for something.
    void OwnPageAsks(const QString& message);
    /// A person has pressed the space bar at the end of the page, which makes nothing of it.
    void ReadToEnd();
    /// An address for another program was not handed over, because nobody had clicked for it.
    void ExternalRefused(const QUrl& url, const QUrl& page);
    /// The page, or a frame in it, wants another program of the desktop to open an address.
    void ExternalRequested(const QUrl& url, const Asker& asker);
    /// The page shows the document that it was to load, and had its address already. It was refreshed, or another page
    /// has opened it. Else `urlChanged` tells.
    void DocumentShown();
    /// There is a document in the page, one that was asked for or an error's. The page has its address by then.
    void DocumentBegan(bool isError);
    /// A frame has its document ready, or is loaded.
    void FrameReady(const QUrl& url);
    void FrameLoaded(const QUrl& url);

protected:
    bool event(QEvent* event) override;
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    void javaScriptAlert(const QUrl& origin, const QString& message) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& message) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& message, const QString& suggestion,
                          QString* result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    void OnInputReport(const QString& report);
    void OnAddress(const QUrl& address);
    void OnLoading(const QWebEngineLoadingInfo& info);
    void OnDocument(const QUrl& address);
    void NoteShown();
    PageDialogAnswer Ask(const PageDialogRequest& request);
    void PrintOnceLoaded(const QPageLayout& layout, std::chrono::milliseconds patience,
                         const std::function<void(const PrintedPage& printed)>& printed, const QPageRanges& ranges);
    void GoOnAfterPrint();
    void EndOnceDone();
    [[nodiscard]] bool StaysForPrint(const QUrl& url, NavigationType type);

    [[nodiscard]] bool MayLeadOn(const QUrl& url);
    [[nodiscard]] bool AcceptOwn(const QUrl& url, NavigationType type, bool isMainFrame);

    QString m_token;
    QPointer<QEventLoop> m_waiting; ///< for the answer to a dialog
    bool m_ending = false;
    QSet<QString> m_input, m_texts;                          ///< the documents that hold some
    std::shared_ptr<int> m_asked = std::make_shared<int>(0); ///< how many scripts have not answered yet
    int m_printing = 0; ///< how often it is being printed; the engine cannot bear that the page goes meanwhile
    int m_overdue = 0;  ///< how often of that nobody waits for it any more
    int m_toPrint = 0;  ///< how often it is to be printed once it has loaded
    QUrl m_afterPrint;  ///< where it wanted to go meanwhile
    PersonNote m_person, m_opener;
    bool m_personWasHere = false;
    QString m_actedFrame; ///< the origin of the frame in which a person acted last; empty for the page itself
    bool m_loading = false;
    bool m_redirects = false;
    QTimer m_mayCopy; ///< runs for as long as the page may put something on the clipboard
    QUrl m_shown;     ///< of the document that came last
    QUrl m_awaited;   ///< of the top-level navigation whose document has not come, nor has it ended
};

} // namespace tessa::qt
