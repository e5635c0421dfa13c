#include "qt/blocking/BlockingMenu.h"

#include "qt/base/Strings.h"
#include "qt/blocking/BlockedPages.h"
#include "qt/blocking/Blocker.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QWebEnginePage>
#include <chrono>

namespace tessa::qt {

namespace {

constexpr std::chrono::milliseconds kSoon{200};

bool IsWebPage(const QUrl& url) { return url.scheme() == u"https" || url.scheme() == u"http"; }

QString StoppedWords(int count) {
    if (count == 0) return QStringLiteral("Nothing was blocked on this page");
    return count == 1 ? QStringLiteral("One request was blocked on this page")
                      : QStringLiteral("%1 requests were blocked on this page").arg(count);
}

} // namespace

BlockingMenu::BlockingMenu(Blocker& blocker, BlockedPages& pages, StatusBar& bar,
                           std::function<QWebEnginePage*()> front)
    : m_blocker(blocker), m_pages(pages), m_bar(bar), m_front(std::move(front)) {
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &BlockingMenu::Show);
    m_connections += m_blocker.Changed.Connect([this] { Show(); });
    m_connections += m_pages.Counted.Connect([this](QWebEnginePage& page) {
        if (&page == m_front()) Follow();
    });
}

void BlockingMenu::Follow() {
    if (m_blocker.IsOn() && !m_soon.isActive()) m_soon.start(kSoon);
}

void BlockingMenu::Show() {
    m_bar.Blocked.Visible = m_blocker.IsOn();
    if (!m_blocker.IsOn()) return;
    const QWebEnginePage* page = m_front();
    const bool off = page && m_blocker.IsOffOn(page->url());
    m_bar.Blocked.Caption = off ? Text(u"Blocking off") : Decimal(m_pages.Count(page)) + u" blocked";
}

void BlockingMenu::Fill(QMenu& menu, QWebEnginePage& page) {
    const QUrl address = page.url();
    menu.addAction(StoppedWords(m_pages.Count(&page)))->setEnabled(false);
    auto* on = menu.addAction(QStringLiteral("&Block on %1").arg(address.host()));
    on->setCheckable(true);
    on->setChecked(!m_blocker.IsOffOn(address));
    on->setEnabled(IsWebPage(address));
    if (!IsWebPage(address)) on->setText(QStringLiteral("&Block on this page"));
    const QPointer<QWebEnginePage> shown = &page;
    connect(on, &QAction::triggered, this, [this, shown, address](bool wanted) {
        m_blocker.SwitchOn(address, wanted);
        if (shown) shown->triggerAction(QWebEnginePage::Reload);
        Show();
    });
    menu.addSeparator();
    const auto add = [&](const QString& words, bool can, auto act) {
        auto* action = menu.addAction(words, this, [shown, act] {
            if (shown) act(*shown);
        });
        action->setEnabled(can);
    };
    add(QStringLiteral("&What Was Blocked..."), true, [this](QWebEnginePage& which) { ShowsBlocked(which); });
    add(QStringLiteral("&Hide an Element..."), IsWebPage(address), [this](QWebEnginePage& which) { Picks(which); });
    menu.addAction(QStringLiteral("Blocking &Options..."), this, [this] { ShowsOptions(); });
}

void BlockingMenu::Open(QWidget& over) {
    auto* page = m_front();
    if (!page) return;
    auto* menu = new QMenu(&over);
    menu->setObjectName(QStringLiteral("blockingMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Fill(*menu, *page);
    menu->popup(over.mapToGlobal(QPoint(0, -menu->sizeHint().height())));
}

} // namespace tessa::qt
