#pragma once
#include "app/ScriptedWindow.h"
#include "qt/script/GroupChecks.h"
#include "qt/script/GroupOutput.h"
#include "qt/script/PageReads.h"
#include "qt/script/TabWalk.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>
#include <utility>
#include <vector>

namespace tessa::qt {

/// The program's place on the session bus, where scripts drive it. Of several instances of one home the first has the
/// name. Calls wait for turns of the event loop, one a turn and of each caller one after the other: who never stops
/// holds up neither the window nor other callers. What is too much is refused.
class ScriptBus final : public QDBusVirtualObject {
public:
    /// How many calls of one caller wait at most, and how many of all for pages that load.
    static constexpr std::size_t kMostCalls = 500;

    /// Both outlive it.
    ScriptBus(ScriptedWindow& window, Engine& engine) : m_window(window), m_reads(engine), m_waits(window) {}

    /// A caller whom the desktop has started wants the window in front, with the desktop's permission for it.
    Signal<void(const QByteArray& token)> Foreground;

    /// What is made of several tabs, and the way into the network: for commands too.
    [[nodiscard]] GroupOutput& Output() { return m_output; }
    /// Takes the name that goes with the folder in which this instance keeps its state. Without a bus nothing happens.
    void Start(const QString& stateFolder, const QDBusConnection& bus = QDBusConnection::sessionBus());

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    struct Call;
    struct Method;
    using Ready = std::function<void()>;

    [[nodiscard]] static const std::vector<Method>& Methods();
    [[nodiscard]] std::deque<Call>& CallsOf(const QString& caller);
    [[nodiscard]] Call TakeNext();
    void Work();
    void WorkSoon();
    void Run(const Call& call);
    /// Calls `ready` once none of these loads any more, of all when there are none.
    void WhenLoaded(const Call& call, std::vector<std::uint32_t> numbers, Ready ready);
    /// The same once the page may be read and has loaded.
    void WhenReadable(const Call& call, std::uint32_t number, Ready ready);
    void WriteTo(const Call& call, const QByteArray& bytes);

    void List(const Call& call);
    void Search(const Call& call);
    void Open(const Call& call);
    void OpenGroup(const Call& call);
    void SaveGroup(const Call& call);
    void Activate(const Call& call);
    void Close(const Call& call);
    void Reload(const Call& call);
    void PageText(const Call& call);
    void PageHtml(const Call& call);
    void PagePdf(const Call& call);
    void PageScreenshot(const Call& call);
    void PdfOfAll(const Call& call);
    void KeepOffline(const Call& call);
    void CheckGroup(const Call& call);
    void RunCommand(const Call& call);
    void Wait(const Call& call);
    void ComeForward(const Call& call);
    void Quit(const Call& call);

    ScriptedWindow& m_window;
    PageReads m_reads;
    LoadWaits m_waits;
    TabWalk m_walk{m_window, m_reads, m_waits};
    GroupOutput m_output{m_reads, m_walk};
    GroupChecks m_checks;
    std::deque<std::pair<QString, std::deque<Call>>> m_callers; ///< whose turn it is stands first; all have calls
    std::chrono::milliseconds m_pause{0};                       ///< as long as the last call took
    bool m_works = false;
};

/// A call that has come, and how it is answered.
struct ScriptBus::Call {
    QDBusMessage message;
    QDBusConnection bus;

    void Answer(const QVariantList& values = {}) const { (void)bus.send(message.createReply(values)); }
    void Refuse(TextView why) const;
    /// Answers with nothing, unless it was refused.
    void Answer(const ScriptedWindow::Refusal& refusal) const;
    /// With what was left out, unless it was refused.
    void Answer(const GroupOutput::Result& result) const;
    [[nodiscard]] QString TextAt(int at) const { return message.arguments().value(at).toString(); }
    [[nodiscard]] bool FlagAt(int at) const { return message.arguments().value(at).toBool(); }
    [[nodiscard]] std::uint32_t NumberAt(int at) const { return message.arguments().value(at).toUInt(); }
    [[nodiscard]] std::vector<std::uint32_t> NumbersAt(int at) const;
};

} // namespace tessa::qt
