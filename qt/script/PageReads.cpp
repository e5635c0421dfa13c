#include "qt/script/PageReads.h"

#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "qt/page/WebPage.h"
#include "qt/page/WebPageLife.h"

#include <QBuffer>
#include <QEvent>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QPointer>
#include <QRegularExpression>
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

// A page at rest is not painted again. For a moment this much less of it is seen, and then all of it again.
const QString& AskPaint() {
    static const QString script =
        QStringLiteral("document.documentElement && document.documentElement.animate({opacity: [0.9999, 1]}, 100); 0");
    return script;
}

constexpr std::chrono::milliseconds kSettling{5000};
constexpr std::chrono::milliseconds kBetween{30};
constexpr int kMostGrabs = 100;
constexpr int kRestingLooks = 4; ///< without a frame in between
constexpr int kMostLooks = 200;  ///< a page that draws nothing is taken as it is

/// Sees that what a view shows is painted.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget& view) : QObject(&view) {
        for (QWidget* each : view.findChildren<QWidget*>()) each->installEventFilter(this);
    }
    /// Whether it was painted anew, and rests again. Asked at each look.
    [[nodiscard]] bool Rests() {
        m_looks = std::exchange(m_painted, m_times) == m_times ? m_looks + 1 : 0;
        return m_times >= 2 && m_looks >= kRestingLooks;
    }
    /// What is seen. Taking that paints, too.
    [[nodiscard]] QImage Grab() {
        const int before = m_times;
        const QImage picture = static_cast<QWidget*>(parent())->grab().toImage();
        m_times = before;
        return picture;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        m_times += event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_times = 0, m_painted = 0;
    int m_looks = 0; ///< since it was painted last
};

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

/// Takes a picture of a view once its page is seen in it: what has been drawn takes a moment to get there. One of one
/// colour is taken when the page has been painted since it was asked to, and rests; or in the end, when it never does.
void GrabSeen(const QPointer<PaintWatch>& watch, int looks, const std::function<void(const QByteArray&)>& read) {
    if (!watch) return read({});
    const QImage picture = watch->Grab();
    if (looks == 0 || watch->Rests() || ShowsAnything(picture)) {
        watch->deleteLater();
        return read(PngOf(picture));
    }
    QTimer::singleShot(kBetween, watch, [watch, looks, read] { GrabSeen(watch, looks - 1, read); });
}

// What marks passages is ours, not the page's.
QString WithoutMarks(QString html) {
    static const QRegularExpression s_marks(QStringLiteral("<tessa-marks [^>]*></tessa-marks>"));
    return html.remove(s_marks);
}

} // namespace

WebPage* PageReads::Find(std::int32_t index) const {
    auto* view = m_engine.Find(index);
    return view ? view->Page() : nullptr;
}

bool PageReads::Wake(std::int32_t index) {
    auto* view = m_engine.Find(index);
    if (view && view->LoadPutOff()) return true;
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

// What is written too late nobody wants any more.
void PageReads::Keep(std::int32_t index, const QString& file, const std::function<void(bool)>& kept) {
    auto* page = Find(index);
    if (!page) return kept(false);
    const auto listener = std::make_shared<std::function<void(bool)>>(kept);
    QTimer::singleShot(m_patience, &m_engine, [listener] {
        if (const auto once = std::exchange(*listener, {})) once(false);
    });
    m_engine.Output().Documents().SaveWhole(*page, file, [listener, file](bool came) {
        if (const auto once = std::exchange(*listener, {})) return once(came);
        if (came) QFile::remove(file);
    });
}

void PageReads::Text(std::int32_t index, const std::function<void(const QString&)>& read) {
    if (auto* page = Find(index)) page->toPlainText(read);
}

void PageReads::Html(std::int32_t index, const std::function<void(const QString&)>& read) {
    if (auto* page = Find(index)) page->toHtml([read](const QString& html) { read(WithoutMarks(html)); });
}

void PageReads::Pdf(std::int32_t index, const std::function<void(const PrintedPage&)>& read) {
    auto* page = Find(index);
    page ? m_engine.Output().BringAsPdf(*page, m_patience, read) : read({});
}

void PageReads::Screenshot(std::int32_t index, const std::function<void(const QByteArray&)>& read) {
    auto* page = Find(index);
    if (!page) return read({});
    const auto grab = [this, index, read] {
        auto* view = m_engine.Find(index);
        auto* widget = view ? view->Widget() : nullptr;
        if (!widget) return read({});
        const QImage picture = widget->grab().toImage();
        if (ShowsAnything(picture)) return read(PngOf(picture));
        view->Page()->runJavaScript(AskPaint(), QWebEngineScript::ApplicationWorld);
        GrabSeen(new PaintWatch(*widget), kMostGrabs, read);
    };
    page->runJavaScript(AskFrames(), QWebEngineScript::ApplicationWorld);
    WhenDrawn(page, kMostLooks, grab);
}

} // namespace tessa::qt
