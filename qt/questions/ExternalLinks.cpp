#include "qt/questions/ExternalLinks.h"

#include "base/PlainText.h"
#include "pages/UnshownAddresses.h"
#include "qt/base/Strings.h"
#include "qt/desktop/DesktopPrograms.h"
#include "qt/page/MailLinks.h"
#include "qt/page/WebPage.h"
#include "qt/questions/Covers.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr std::size_t kShownLength = 200;
constexpr std::size_t kShownScheme = 40;

// What a page calls an address is not to be trusted: one line of plain characters, cut.
QString ShownAddress(const QUrl& url) {
    return ToQt(PlainLine(FromQt(url.toString(QUrl::FullyEncoded)), kShownLength));
}

// A scheme may be as long as its page likes.
QString ShownScheme(const QUrl& url) { return ToQt(PlainLine(FromQt(url.scheme()), kShownScheme)); }

class Question final : public DialogCover {
public:
    /// `holder` says for whom an answer can be remembered; empty for nobody.
    Question(const QUrl& url, const QString& heading, const QString& holder) {
        setObjectName(QStringLiteral("externalDialog"));
        AddHeading(heading);
        AddAddress(ShownAddress(url));
        if (!holder.isEmpty()) OfferToRemember(url, holder);
        // What leaves the browser leaves it by a decision, not by a key that was pressed for something else.
        AddButtons(QStringLiteral("&Open"), QStringLiteral("&Cancel"), DefaultAnswer::Cancel);
    }

    [[nodiscard]] bool Remembers() const { return m_remember && m_remember->isChecked(); }

private:
    void OfferToRemember(const QUrl& url, const QString& holder) {
        const QString scheme = ShownScheme(url);
        m_remember = new QCheckBox(QStringLiteral("&Remember the answer for \"%1:\" addresses").arg(scheme), this);
        m_remember->setObjectName(QStringLiteral("chkRemember"));
        Column()->addWidget(m_remember);
        AddWords(QStringLiteral("Remembered, it holds for %1 until TessaView is closed.").arg(holder), "lblHolds");
    }

    QCheckBox* m_remember = nullptr;
};

class Message final : public DialogCover {
public:
    Message(const QString& heading, const QString& address, const QString& why) {
        setObjectName(QStringLiteral("externalDialog"));
        AddHeading(heading);
        AddAddress(address);
        AddWords(why, "lblHolds");
        AddButtons(QStringLiteral("OK"), {});
    }
};

DialogCover* NoProgram(const QUrl& url) {
    return new Message(
        QStringLiteral("No program opens this address."), ShownAddress(url),
        QStringLiteral("This desktop has no program for addresses that begin with \"%1:\".").arg(ShownScheme(url)));
}

DialogCover* NotShown(const QUrl& url, const Text& why) {
    // What was typed as a path is read as one.
    const bool drive = url.scheme().size() == 1;
    const QString path = url.scheme().toUpper() + u':' + url.path(QUrl::FullyDecoded);
    const QString address = drive ? ToQt(PlainLine(FromQt(path), kShownLength)) : ShownAddress(url);
    return new Message(QStringLiteral("This address cannot be shown."), address, ToQt(why));
}

} // namespace

/// Who wants an address opened.
struct ExternalLinks::Asker {
    QString heading;
    QString site;          ///< for which an answer holds; empty for the user and for pages without a host
    QString host;          ///< of the page
    QString who;           ///< tells one that was refused from the next
    bool remembers = true; ///< whether an answer may hold for more than once
    bool user = false;
    bool person = false; ///< who has clicked for it in a page
};

ExternalLinks::ExternalLinks(WebPage& page, Covers& covers, ExternalSchemes& answers)
    : m_page(page), m_covers(covers), m_answers(answers) {
    // Queued: the engine waits until it is told that the page stays where it is.
    connect(
        &page, &WebPage::ExternalRequested, this,
        [this](const QUrl& url, const qt::Asker& asker) { Open(url, AskerIn(asker)); }, Qt::QueuedConnection);
    connect(&page, &WebPage::NavigationRequested, this, [this](const QUrl&, bool topLevel) {
        if (topLevel) TakeOff();
    });
    connect(&page, &WebPage::ExternalRefused, this,
            [this](const QUrl& url, const QUrl& asker) { TellRefused(url, WebPage::HostAndPort(asker)); });
    connect(&page, &WebPage::PersonNavigated, this, [this] {
        m_refused.clear();
        m_toldRefused.clear();
    });
}

ExternalLinks::Asker ExternalLinks::AskerIn(const qt::Asker& asker) {
    const QString host = WebPage::HostAndPort(asker.page), site = WebPage::SiteOf(asker.page);
    const QString from = WebPage::HostAndPort(asker.frameOrigin);
    QString who = host.isEmpty() ? QStringLiteral("A page without an address") : host;
    if (asker.frame) {
        who = QStringLiteral("A frame in %1").arg(host.isEmpty() ? QStringLiteral("a page without an address") : host);
        if (!from.isEmpty()) who += QStringLiteral(", from %1,").arg(from);
    }
    return {QStringLiteral("%1 wants to open another program.").arg(who),
            site,
            host,
            who + u' ' + site,
            !asker.frame && !site.isEmpty(),
            false,
            asker.person};
}

bool ExternalLinks::Take(const QUrl& url) {
    const Asker user{QStringLiteral("Open this address with another program?"), {}, {}, {}, true, true};
    const Text address = FromQt(url.toString(QUrl::FullyEncoded));
    if (const Text why = UnshownAddresses::WhyNot(address); !why.empty()) {
        Tell(url, NotShown(url, why), user);
        return true;
    }
    const bool external = MailLinks::IsMail(url) || ExternalSchemes::IsExternal(FromQt(url.scheme()));
    if (external) Open(url, user);
    return external;
}

void ExternalLinks::Open(const QUrl& url, const Asker& asker) {
    const bool known = asker.user || !asker.site.isEmpty();
    ExternalRule rule = known ? m_answers.RuleFor(FromQt(url.scheme()), FromQt(asker.site)) : ExternalRule::Ask;
    // What a page may do its frames may not; what it may not, they may not either.
    if (rule == ExternalRule::Open && !asker.remembers) rule = ExternalRule::Ask;
    // A page cannot insist. A person who types it again, or clicks a link that leads nowhere, is to know why.
    const bool refused = !asker.user && m_refused.contains({url.scheme(), asker.who});
    // Without another program the desktop would give the address back to a browser.
    if (rule != ExternalRule::Refuse && !DesktopPrograms::OpensElsewhere(url.scheme()))
        return refused && !asker.person ? void() : Tell(url, NoProgram(url), asker);
    if (rule == ExternalRule::Open) QDesktopServices::openUrl(url);
    if (rule == ExternalRule::Ask && refused) rule = ExternalRule::Refuse;
    if (rule == ExternalRule::Refuse && !asker.user) TellRefused(url, asker.host);
    if (rule == ExternalRule::Ask && !m_shown) Ask(url, asker);
}

// A page may try without end: once is enough to know of it.
void ExternalLinks::TellRefused(const QUrl& url, const QString& host) {
    if (m_toldRefused.contains(url.scheme())) return;
    m_toldRefused.insert(url.scheme());
    Refused(QStringLiteral("%1 wanted to open another program (%2:), which was not allowed.")
                .arg(host.isEmpty() ? QStringLiteral("This page") : host, ShownScheme(url)));
}

void ExternalLinks::Ask(const QUrl& url, const Asker& asker) {
    const QString holder = asker.user ? QStringLiteral("what you type") : QStringLiteral("this site");
    auto* question = new Question(url, asker.heading, asker.remembers ? holder : QString());
    const auto answer = [this, question, url, asker](bool open) {
        if (question->Remembers()) m_answers.Remember(FromQt(url.scheme()), FromQt(asker.site), open);
        if (!open && !asker.user) m_refused.insert({url.scheme(), asker.who});
        TakeOff();
        if (open) QDesktopServices::openUrl(url);
    };
    question->Accepted.ConnectForLife([answer] { answer(true); });
    question->Cancelled.ConnectForLife([answer] { answer(false); });
    Show(question);
    if (asker.user && m_covers.Shown()) m_covers.TakeFocus();
}

void ExternalLinks::Tell(const QUrl& url, DialogCover* told, const Asker& asker) {
    told->Accepted.ConnectForLife([this, url, asker] {
        if (!asker.user) m_refused.insert({url.scheme(), asker.who});
        TakeOff();
    });
    // A page may try as often as it likes. Its user is told what came of the address that was typed last.
    if (m_shown && !asker.user) return delete told;
    TakeOff();
    Show(told);
    // Whoever has typed it is still in the address box, and is to answer without looking for the button.
    if (asker.user && m_covers.Shown()) m_covers.TakeFocus();
}

void ExternalLinks::Show(DialogCover* dialog) {
    m_shown = dialog;
    m_covers.Add(dialog);
}

void ExternalLinks::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}

} // namespace tessa::qt
