#include "qt/QtExternalLinks.h"

#include "pages/PlainText.h"
#include "qt/QtCovers.h"
#include "qt/QtDesktopPrograms.h"
#include "qt/QtPage.h"
#include "qt/QtText.h"

#include <QCheckBox>
#include <QDesktopServices>
#include <QVBoxLayout>

namespace {

constexpr std::size_t kShownLength = 200;

// What a page calls an address is not to be trusted: one line of plain characters, cut.
QString ShownAddress(const QUrl& url) {
    return ToQt(PlainLine(FromQt(url.toString(QUrl::FullyEncoded)), kShownLength));
}

class Question final : public QtDialogCover {
public:
    Question(const QUrl& url, const QString& site) {
        setObjectName(QStringLiteral("externalDialog"));
        AddHeading(site.isEmpty() ? QStringLiteral("Open this address with another program?")
                                  : QStringLiteral("%1 wants to open another program.").arg(site));
        AddWords(ShownAddress(url), "lblAddress");
        m_remember =
            new QCheckBox(QStringLiteral("&Remember the answer for \"%1:\" addresses").arg(url.scheme()), this);
        m_remember->setObjectName(QStringLiteral("chkRemember"));
        Column()->addWidget(m_remember);
        AddWords(QStringLiteral("Remembered, it holds for %1 until TessaView is closed.")
                     .arg(site.isEmpty() ? QStringLiteral("what you type") : QStringLiteral("this site")),
                 "lblHolds");
        // What leaves the browser leaves it by a decision, not by a key that was pressed for something else.
        AddButtons(QStringLiteral("&Open"), QStringLiteral("&Cancel"), DefaultAnswer::Cancel);
    }

    [[nodiscard]] bool Remembers() const { return m_remember->isChecked(); }

private:
    QCheckBox* m_remember;
};

class NoProgram final : public QtDialogCover {
public:
    explicit NoProgram(const QUrl& url) {
        setObjectName(QStringLiteral("externalDialog"));
        AddHeading(QStringLiteral("No program opens this address."));
        AddWords(ShownAddress(url), "lblAddress");
        AddWords(QStringLiteral("This desktop has no program for addresses that begin with \"%1:\".").arg(url.scheme()),
                 "lblHolds");
        AddButtons(QStringLiteral("OK"), {});
    }
};

} // namespace

QtExternalLinks::QtExternalLinks(QtPage& page, QtCovers& covers, ExternalSchemes& answers)
    : m_page(page), m_covers(covers), m_answers(answers) {
    // Queued: the engine waits until it is told that the page stays where it is.
    connect(
        &page, &QtPage::ExternalRequested, this,
        [this](const QUrl& url) { Open(url, QtPage::HostAndPort(m_page.url())); }, Qt::QueuedConnection);
    connect(&page, &QtPage::NavigationRequested, this, [this](const QUrl&, bool topLevel) {
        if (topLevel) TakeOff();
    });
    connect(&page, &QtPage::PersonNavigated, this, [this] { m_refused.clear(); });
}

void QtExternalLinks::Open(const QUrl& url, const QString& site) {
    const ExternalRule rule = m_answers.RuleFor(FromQt(url.scheme()), FromQt(site));
    if (rule == ExternalRule::Open) QDesktopServices::openUrl(url);
    if (rule == ExternalRule::Ask && !m_shown && !m_refused.contains({url.scheme(), site})) Ask(url, site);
}

void QtExternalLinks::Ask(const QUrl& url, const QString& site) {
    // Without one the desktop would give the address back to a browser.
    if (QtDesktopPrograms::CommandFor(url.scheme()).isEmpty()) {
        auto* told = new NoProgram(url);
        told->Accepted = [this] { TakeOff(); };
        return Show(told);
    }
    auto* question = new Question(url, site);
    const auto answer = [this, question, url, site](bool open) {
        if (question->Remembers()) m_answers.Remember(FromQt(url.scheme()), FromQt(site), open);
        // A page cannot insist; a person who types it again means it.
        if (!open && !site.isEmpty()) m_refused.insert({url.scheme(), site});
        TakeOff();
        if (open) QDesktopServices::openUrl(url);
    };
    question->Accepted = [answer] { answer(true); };
    question->Cancelled = [answer] { answer(false); };
    Show(question);
}

void QtExternalLinks::Show(QtDialogCover* dialog) {
    m_shown = dialog;
    m_covers.Add(dialog);
}

void QtExternalLinks::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}
