#include "qt/program/HistoryAssembly.h"

#include "qt/base/Strings.h"
#include "qt/engine/Engine.h"
#include "qt/program/DesktopAssembly.h"
#include "window/frmMain.h"

#include <QBuffer>
#include <QPixmap>
#include <chrono>

namespace tessa::qt {

namespace {

constexpr int kIconSize = 16;

// Small as it is, and drawn sharp on screens with twice the dots.
std::string PictureOf(const QIcon& icon) {
    if (icon.isNull()) return {};
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    icon.pixmap(QSize(kIconSize, kIconSize), 2.0).save(&buffer, "PNG");
    return buffer.data().toStdString();
}

} // namespace

HistoryAssembly::HistoryAssembly(const DesktopAssembly& desktop)
    : store(desktop.folders.data + QStringLiteral("/history")) {}

void HistoryAssembly::Serve(frmMain& main, Engine& engine, QMainWindow& window) {
    store.Say.ConnectForLife([&main](const QString& words) { main.sbStatus.Complaint(FromQt(words)); });
    ReadPages& reads = main.Reads();
    m_look.setSingleShot(true);
    m_look.callOnTimeout([&reads] { reads.Look(); });
    reads.Schedule.ConnectForLife([this](ReadPages::Time time) { m_look.start(time); });
    reads.Now = [] {
        return std::chrono::duration_cast<ReadPages::Time>(std::chrono::steady_clock::now().time_since_epoch());
    };
    reads.Icon = [&engine](std::int32_t index) { return PictureOf(engine.Icon(index)); };
    engine.Told().HistoryAsks.ConnectForLife(
        [&main](std::int32_t index, const QString& message) { main.AskHistory(index, FromQt(message)); });
    engine.Told().ReadToEnd.ConnectForLife([&main] { main.ReadOn(); });
    m_panel.emplace(main.OpenPagesPanel(), window);
    m_panel->FocusPage().ConnectForLife([&main] { main.FocusPage(); });
}

} // namespace tessa::qt
