#pragma once
#include "base/Signal.h"
#include "pages/ExternalSchemes.h"
#include "qt/page/DialogCover.h"

#include <QObject>
#include <QPair>
#include <QPointer>
#include <QSet>
#include <QUrl>

namespace tessa::qt {

class Covers;
struct Asker;
class WebPage;

/// Hands addresses that no page can show to the desktop's program for them. First the user is asked, in a dialog of the
/// tab. One question at a time: a page that wants many opened gets one answer. An answer is for once, unless the user
/// wants it remembered. A page that was refused is not asked about again. Nothing is remembered for frames, nor for
/// pages without a host: nobody could tell whose answer it is.
class ExternalLinks final : public QObject {
    Q_OBJECT

public:
    /// All outlive this object.
    ExternalLinks(WebPage& page, Covers& covers, ExternalSchemes& answers);

    /// The user has typed the address. Asks about it when it is for another program, and says why when nothing can show
    /// it. False for what the page may load.
    bool Take(const QUrl& url);

    /// What the page wanted was refused without asking anybody. Said once for each scheme until a person goes to
    /// another page.
    Signal<void(const QString& words)> Refused;

private:
    struct Asker;
    [[nodiscard]] static Asker AskerIn(const qt::Asker& asker);
    void Open(const QUrl& url, const Asker& asker);
    void Ask(const QUrl& url, const Asker& asker);
    void Tell(const QUrl& url, DialogCover* told, const Asker& asker);
    void TellRefused(const QUrl& url, const QString& host);
    void Show(DialogCover* dialog);
    void TakeOff();

    WebPage& m_page;
    Covers& m_covers;
    ExternalSchemes& m_answers;
    QSet<QPair<QString, QString>> m_refused; ///< schemes and who wanted them, until a person goes to another page
    QSet<QString> m_toldRefused;             ///< schemes, likewise
    QPointer<DialogCover> m_shown;
};

} // namespace tessa::qt
