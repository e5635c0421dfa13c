// What the scripts that the program puts into pages cost: a page of 50 frames is loaded with them and without in turn.
#include "qt/engine/Profile.h"
#include "qt/page/DialogScheme.h"
#include "qt/page/StartPageScheme.h"
#include "qt/page/WebPage.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QWebEngineProfile>
#include <QWebEngineScriptCollection>
#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace tessa::qt {

namespace {

constexpr int kFrames = 50;
constexpr int kRounds = 25;

QByteArray PageOfFrames() {
    QByteArray page = "<!doctype html><title>Frames</title>";
    QByteArray text;
    for (int i = 0; i < 20; ++i) text += "<p>Some words that a frame shows, as an advertisement would.</p><input>";
    for (int i = 0; i < kFrames; ++i) page += "<iframe srcdoc='" + text + "'></iframe>";
    return page;
}

qint64 Load(QWebEnginePage& page, const QUrl& url) {
    QEventLoop waiting;
    QObject::connect(&page, &QWebEnginePage::loadFinished, &waiting, &QEventLoop::quit);
    QElapsedTimer clock;
    clock.start();
    page.load(url);
    waiting.exec();
    return clock.nsecsElapsed() / 1000;
}

qint64 Median(std::vector<qint64> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

} // namespace tessa::qt

int main(int argc, char** argv) {
    using namespace tessa::qt;
    StartPageScheme::RegisterScheme();
    DialogScheme::RegisterScheme();
    QApplication application(argc, argv);
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/frames-XXXXXX.html"));
    if (!file.open() || file.write(PageOfFrames()) < 0 || !file.flush()) return 1;
    const QUrl url = QUrl::fromLocalFile(file.fileName());
    const QString token = QStringLiteral("token");
    const auto noHomePage = [] { return std::string(); };
    const Profile with({}, {}, token, noHomePage), without({}, {}, token, noHomePage);
    without.Get()->scripts()->clear();
    WebPage scripted(with.Get(), token), plain(without.Get(), token);
    std::array<std::vector<qint64>, 2> taken;
    for (int round = 0; round < kRounds; ++round) {
        const bool first = round % 2 == 0;
        for (const bool scripts : {first, !first}) {
            const qint64 microseconds = Load(scripts ? scripted : plain, url);
            // The first loads start the renderers.
            if (round > 1) taken[scripts ? 1 : 0].push_back(microseconds);
        }
    }
    const qint64 bare = Median(taken[0]), ours = Median(taken[1]);
    std::printf("a page of %d frames: %.1f ms without the program's scripts, %.1f ms with them, ratio %.3f\n", kFrames,
                static_cast<double>(bare) / 1000, static_cast<double>(ours) / 1000,
                static_cast<double>(ours) / static_cast<double>(bare));
    return 0;
}
