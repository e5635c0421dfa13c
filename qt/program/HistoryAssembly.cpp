#include "qt/program/HistoryAssembly.h"

#include "qt/base/Strings.h"
#include "qt/engine/Engine.h"
#include "qt/program/DesktopAssembly.h"
#include "window/frmMain.h"

namespace tessa::qt {

HistoryAssembly::HistoryAssembly(const DesktopAssembly& desktop)
    : store(desktop.folders.data + QStringLiteral("/history")) {}

void HistoryAssembly::Serve(frmMain& main, Engine& engine, QMainWindow& window) {
    store.Say.ConnectForLife([&main](const QString& words) { main.sbStatus.Complaint(FromQt(words)); });
    ReadPages& reads = main.Reads();
    m_look.setSingleShot(true);
    m_look.callOnTimeout([&reads] { reads.Look(); });
    reads.Schedule.ConnectForLife([this](ReadPages::Time time) { m_look.start(time); });
    engine.Told().HistoryAsks.ConnectForLife(
        [&main](std::int32_t index, const QString& message) { main.AskHistory(index, FromQt(message)); });
    engine.Told().ReadToEnd.ConnectForLife([&main] { main.ReadOn(); });
    m_panel.emplace(main.OpenPagesPanel(), window);
    m_panel->FocusPage().ConnectForLife([&main] { main.FocusPage(); });
}

} // namespace tessa::qt
