#include "qt/script/PageReads.h"

#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "qt/page/WebPage.h"
#include "qt/page/WebPageLife.h"

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <chrono>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {

// What has loaded is drawn two frames later. In a world of our own the page sees nothing of it.
const QString& AskFrames() {
    static const QString script = QStringLiteral(
        "var drawn = 0; requestAnimationFrame(() => { drawn = 1; requestAnimationFrame(() => { drawn = 2; }); });");
    return script;
}

constexpr std::chrono::milliseconds kSettling{5000};
constexpr std::chrono::milliseconds kBetween{30};
constexpr int kMostGrabs = 100;
constexpr int kMostLooks = 200; ///< a page that draws nothing is taken as it is

/// Calls `then` when the page has drawn what it shows.
void WhenDrawn(QPointer<WebPage> page, int looks, const std::function<void()>& then) {
    if (!page) return then();
    page->runJavaScript(
        QStringLiteral("drawn"), QWebEngineScript::ApplicationWorld, [page, looks, then](const QVariant& frames) {
            if (!page || frames.toInt() == 2 || looks == 0) return then();
            QTimer::singleShot(kBetween, page, [page, looks, then] { WhenDrawn(page, looks - 1, then); });
        });
}

QByteArray PngOf(const QImage& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QBuffer::WriteOnly) || !picture.save(&buffer, "PNG")) return {};
    return bytes;
}

/// Whether there is anything to be seen: before the engine's first frame has come, all is of one colour.
bool ShowsAnything(const QImage& picture) {
    if (picture.isNull()) return false;
    const QRgb first = picture.pixel(0, 0);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != first) return true;
        }
    }
    return false;
}

/// Takes a picture of a view once its page is seen in it: what has been drawn takes a moment to get there. A page of
/// one colour is taken as it is in the end.
void GrabSeen(const QPointer<QWidget>& view, int looks, const std::function<void(const QByteArray&)>& read) {
    const QImage picture = view ? view->grab().toImage() : QImage();
    if (!view || looks == 0 || ShowsAnything(picture)) return read(PngOf(picture));
    QTimer::singleShot(kBetween, view, [view, looks, read] { GrabSeen(view, looks - 1, read); });
}

} // namespace

WebPage* PageReads::Find(std::int32_t index) const {
    auto* view = m_engine.Find(index);
    return view ? view->Page() : nullptr;
}

bool PageReads::Wake(std::int32_t index) {
    auto* page = Find(index);
    if (page && page->lifecycleState() != QWebEnginePage::LifecycleState::Active)
        page->setLifecycleState(QWebEnginePage::LifecycleState::Active);
    return page != nullptr;
}

// What a page answers now comes behind what it has told before.
void PageReads::Settle(const std::vector<std::uint32_t>& numbers, const std::function<void()>& then) {
    const auto open = std::make_shared<std::size_t>(1);
    const auto once = std::make_shared<std::function<void()>>(then);
    const auto end = [once] {
        if (const auto told = std::exchange(*once, {})) told();
    };
    const auto one = [open, end](const QVariant&) {
        if (--*open == 0) end();
    };
    for (const std::uint32_t number : numbers) {
        auto* page = Find(static_cast<std::int32_t>(number));
        if (!page || page->lifecycleState() != QWebEnginePage::LifecycleState::Active) continue;
        ++*open;
        page->runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld, one);
    }
    QTimer::singleShot(kSettling, &m_engine, end);
    one({});
}

void PageReads::Sleep(std::int32_t index) {
    auto* view = m_engine.Find(index);
    if (auto* life = view ? view->Life() : nullptr) ResumeNext(life->Sleep());
}

void PageReads::Keep(std::int32_t index, const QString& file, const std::function<void(bool)>& kept) {
    auto* page = Find(index);
    page ? m_engine.Output().Documents().SaveWhole(*page, file, kept) : kept(false);
}

void PageReads::Text(std::int32_t index, const std::function<void(const QString&)>& read) {
    if (auto* page = Find(index)) page->toPlainText(read);
}

void PageReads::Html(std::int32_t index, const std::function<void(const QString&)>& read) {
    if (auto* page = Find(index)) page->toHtml(read);
}

void PageReads::Pdf(std::int32_t index, const std::function<void(const QByteArray&)>& read) {
    auto* page = Find(index);
    if (!page) return read({});
    PageOutput& output = m_engine.Output();
    if (output.FetchPdf(*page, read)) return;
    // Events ran meanwhile.
    if (Find(index) == page)
        page->Print(output.Layout(), read);
    else
        read({});
}

void PageReads::Screenshot(std::int32_t index, const std::function<void(const QByteArray&)>& read) {
    auto* page = Find(index);
    if (!page) return read({});
    const auto grab = [this, index, read] {
        auto* view = m_engine.Find(index);
        GrabSeen(view ? view->Widget() : nullptr, kMostGrabs, read);
    };
    page->runJavaScript(AskFrames(), QWebEngineScript::ApplicationWorld);
    WhenDrawn(page, kMostLooks, grab);
}

} // namespace tessa::qt
