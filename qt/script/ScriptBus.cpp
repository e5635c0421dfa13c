#include "qt/script/ScriptBus.h"

#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "qt/base/PathBytes.h"
#include "qt/base/Strings.h"
#include "script/BusNames.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <chrono>
#include <string_view>
#include <utility>

namespace tessa::qt {

/// A tab on the bus.
struct BusTab {
    uint number = 0;
    QString title, address, group, state;
};

static QDBusArgument& operator<<(QDBusArgument& argument, const BusTab& tab) {
    argument.beginStructure();
    argument << tab.number << tab.title << tab.address << tab.group << tab.state;
    argument.endStructure();
    return argument;
}

static const QDBusArgument& operator>>(const QDBusArgument& argument, BusTab& tab) {
    argument.beginStructure();
    argument >> tab.number >> tab.title >> tab.address >> tab.group >> tab.state;
    argument.endStructure();
    return argument;
}

namespace {

// The window paints and answers its user in between.
constexpr std::chrono::milliseconds kLongestPause{20};
// The bus takes no longer message.
constexpr qsizetype kLongestAnswer = 32 << 20;

QVariant OnBus(const std::vector<ScriptTab>& tabs) {
    QList<BusTab> list;
    for (const ScriptTab& tab : tabs)
        list.append({tab.number, QString::fromStdString(tab.title), QString::fromStdString(tab.address),
                     QString::fromStdString(tab.group), QString::fromStdString(tab.state)});
    return QVariant::fromValue(list);
}

QVariant OnBus(const std::vector<std::uint32_t>& numbers) {
    return QVariant::fromValue(QList<uint>(numbers.begin(), numbers.end()));
}

} // namespace

void ScriptBus::Call::Refuse(TextView why) const {
    (void)bus.send(message.createErrorReply(QString::fromLatin1(BusNames::kRefused), ToQt(why)));
}

void ScriptBus::Call::Answer(const ScriptedWindow::Refusal& refusal) const {
    refusal.empty() ? Answer(QVariantList()) : Refuse(refusal);
}

void ScriptBus::Call::Answer(const GroupOutput::Result& result) const {
    result.refusal.isEmpty() ? Answer(QVariantList{result.left}) : Refuse(FromQt(result.refusal));
}

std::vector<std::uint32_t> ScriptBus::Call::NumbersAt(int at) const {
    const auto list = qdbus_cast<QList<uint>>(message.arguments().value(at));
    return {list.begin(), list.end()};
}

/// A row of the interface: the signatures of what comes and of what is answered.
struct ScriptBus::Method {
    const char* name;
    const char* takes;
    const char* gives;
    void (ScriptBus::*run)(const Call&);
};

const std::vector<ScriptBus::Method>& ScriptBus::Methods() {
    static const std::vector<Method> methods{
        {"List", "", "a(ussss)", &ScriptBus::List},
        {"Search", "s", "a(ussss)", &ScriptBus::Search},
        {"Open", "asb", "au", &ScriptBus::Open},
        {"OpenGroup", "sb", "au", &ScriptBus::OpenGroup},
        {"SaveGroup", "sb", "", &ScriptBus::SaveGroup},
        {"Activate", "u", "", &ScriptBus::Activate},
        {"Close", "au", "", &ScriptBus::Close},
        {"Reload", "au", "", &ScriptBus::Reload},
        {"Text", "u", "s", &ScriptBus::PageText},
        {"Html", "u", "s", &ScriptBus::PageHtml},
        {"Pdf", "us", "", &ScriptBus::PagePdf},
        {"Screenshot", "us", "", &ScriptBus::PageScreenshot},
        {"PdfOfAll", "aus", "as", &ScriptBus::PdfOfAll},
        {"KeepOffline", "aus", "as", &ScriptBus::KeepOffline},
        {"CheckGroup", "s", "a(ussss)", &ScriptBus::CheckGroup},
        {"RunCommand", "s", "", &ScriptBus::RunCommand},
        {"Wait", "au", "", &ScriptBus::Wait},
        {"Foreground", "s", "", &ScriptBus::ComeForward},
        {"Quit", "", "", &ScriptBus::Quit},
    };
    return methods;
}

void ScriptBus::Start(const QString& stateFolder, const QDBusConnection& bus) {
    if (!bus.isConnected()) return;
    qDBusRegisterMetaType<BusTab>();
    qDBusRegisterMetaType<QList<BusTab>>();
    QDBusConnection own(bus);
    if (!own.registerVirtualObject(QString::fromLatin1(BusNames::kObject), this)) return;
    const QString name = QString::fromStdString(BusNames::NameFor(PathBytes(stateFolder)));
    // When the first instance ends, the next one is driven.
    own.interface()->registerService(name, QDBusConnectionInterface::QueueService,
                                     QDBusConnectionInterface::DontAllowReplacement);
}

QString ScriptBus::introspect(const QString&) const {
    QString xml = QStringLiteral("<interface name=\"%1\">\n").arg(QLatin1String(BusNames::kInterface));
    const auto list = [&xml](std::string_view types, const char* way) {
        for (std::size_t at = 0; at < types.size();) {
            std::size_t end = at + 1;
            if (types[at] == 'a') end = types[at + 1] == '(' ? types.find(')', at) + 1 : at + 2;
            xml += QStringLiteral("<arg type=\"%1\" direction=\"%2\"/>")
                       .arg(QString::fromStdString(std::string(types.substr(at, end - at))), QLatin1String(way));
            at = end;
        }
    };
    for (const Method& each : Methods()) {
        xml += QStringLiteral("<method name=\"%1\">").arg(QLatin1String(each.name));
        list(each.takes, "in");
        list(each.gives, "out");
        xml += QStringLiteral("</method>\n");
    }
    return xml + QStringLiteral("</interface>\n");
}

bool ScriptBus::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.interface() != QLatin1String(BusNames::kInterface) && !message.interface().isEmpty()) return false;
    std::deque<Call>& calls = CallsOf(message.service());
    if (calls.size() < kMostCalls) {
        calls.push_back({message, connection});
        WorkSoon();
    } else if (message.isReplyRequired()) {
        (void)connection.send(message.createErrorReply(QString::fromLatin1(BusNames::kTooMany),
                                                       QStringLiteral("Too many calls wait already.")));
    }
    return true;
}

std::deque<ScriptBus::Call>& ScriptBus::CallsOf(const QString& caller) {
    const auto found = std::ranges::find_if(m_callers, [&caller](const auto& each) { return each.first == caller; });
    return found != m_callers.end() ? found->second : m_callers.emplace_back(caller, std::deque<Call>()).second;
}

ScriptBus::Call ScriptBus::TakeNext() {
    auto turn = std::move(m_callers.front());
    m_callers.pop_front();
    Call call = std::move(turn.second.front());
    turn.second.pop_front();
    if (!turn.second.empty()) m_callers.push_back(std::move(turn));
    return call;
}

void ScriptBus::WorkSoon() {
    if (!std::exchange(m_works, true)) QTimer::singleShot(m_pause, this, [this] { Work(); });
}

// A call may bring up a question, in whose event loop the next ones are answered.
void ScriptBus::Work() {
    m_works = false;
    if (m_callers.empty()) return;
    const Call call = TakeNext();
    if (!m_callers.empty()) WorkSoon();
    QElapsedTimer since;
    since.start();
    Run(call);
    m_pause = std::min(std::chrono::milliseconds(since.elapsed()), kLongestPause);
}

void ScriptBus::Run(const Call& call) {
    const auto found = std::ranges::find_if(
        Methods(), [&call](const Method& each) { return call.message.member() == QLatin1String(each.name); });
    if (found == Methods().end()) return call.Refuse(u"There is no such method.");
    if (call.message.signature() != QLatin1String(found->takes))
        return call.Refuse(u"The method takes other arguments.");
    (this->*found->run)(call);
}

void ScriptBus::WhenLoaded(const Call& call, std::vector<std::uint32_t> numbers, Ready ready) {
    if (!m_waits.When(std::move(numbers), std::move(ready))) call.Refuse(u"Too many callers wait already.");
}

void ScriptBus::WhenReadable(const Call& call, std::uint32_t number, Ready ready) {
    if (const auto refusal = m_window.MayRead(number); !refusal.empty()) return call.Refuse(refusal);
    if (!m_reads.Wake(static_cast<std::int32_t>(number)))
        return call.Refuse(u"The page has not been loaded yet; activate its tab first.");
    WhenLoaded(call, {number}, [this, call, number, ready = std::move(ready)] {
        const auto refusal = m_window.MayRead(number);
        refusal.empty() ? ready() : call.Refuse(refusal);
    });
}

void ScriptBus::WriteTo(const Call& call, const QByteArray& bytes) {
    const Text path = FromQt(call.TextAt(1));
    const std::string_view all(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (all.empty()) return call.Refuse(u"The page could not be had.");
    if (WriteWholeFile(PathToBytes(path), all) == Outcome::Done) return call.Answer();
    call.Refuse(u"The file could not be written: " + path);
}

void ScriptBus::List(const Call& call) { call.Answer(QVariantList{OnBus(m_window.List())}); }

void ScriptBus::Search(const Call& call) { call.Answer(QVariantList{OnBus(m_window.Search(FromQt(call.TextAt(0))))}); }

void ScriptBus::Open(const Call& call) {
    std::vector<Text> addresses;
    for (const QString& each : qdbus_cast<QStringList>(call.message.arguments().value(0)))
        addresses.push_back(FromQt(each));
    const auto opened = m_window.Open(addresses, call.FlagAt(1));
    opened.refusal.empty() ? call.Answer(QVariantList{OnBus(opened.numbers)}) : call.Refuse(opened.refusal);
}

void ScriptBus::OpenGroup(const Call& call) {
    const auto opened = m_window.OpenGroup(FromQt(call.TextAt(0)), call.FlagAt(1));
    opened.refusal.empty() ? call.Answer(QVariantList{OnBus(opened.numbers)}) : call.Refuse(opened.refusal);
}

void ScriptBus::SaveGroup(const Call& call) { call.Answer(m_window.SaveGroup(FromQt(call.TextAt(0)), call.FlagAt(1))); }

void ScriptBus::Activate(const Call& call) { call.Answer(m_window.Activate(call.NumberAt(0))); }

void ScriptBus::Close(const Call& call) { call.Answer(m_window.Close(call.NumbersAt(0))); }

void ScriptBus::Reload(const Call& call) { call.Answer(m_window.Reload(call.NumbersAt(0))); }

void ScriptBus::PageText(const Call& call) {
    WhenReadable(call, call.NumberAt(0), [this, call] {
        m_reads.Text(static_cast<std::int32_t>(call.NumberAt(0)), [call](const QString& text) {
            text.size() > kLongestAnswer ? call.Refuse(u"The page is too long.") : call.Answer(QVariantList{text});
        });
    });
}

void ScriptBus::PageHtml(const Call& call) {
    WhenReadable(call, call.NumberAt(0), [this, call] {
        m_reads.Html(static_cast<std::int32_t>(call.NumberAt(0)), [call](const QString& html) {
            html.size() > kLongestAnswer ? call.Refuse(u"The page is too long.") : call.Answer(QVariantList{html});
        });
    });
}

void ScriptBus::PagePdf(const Call& call) {
    if (!IsAbsolute(PathToBytes(FromQt(call.TextAt(1))))) return call.Refuse(u"The path has to begin at the root.");
    WhenReadable(call, call.NumberAt(0), [this, call] {
        m_reads.Pdf(static_cast<std::int32_t>(call.NumberAt(0)),
                    [this, call](const QByteArray& pdf) { WriteTo(call, pdf); });
    });
}

void ScriptBus::PageScreenshot(const Call& call) {
    if (!IsAbsolute(PathToBytes(FromQt(call.TextAt(1))))) return call.Refuse(u"The path has to begin at the root.");
    WhenReadable(call, call.NumberAt(0), [this, call] {
        if (const auto refusal = m_window.Activate(call.NumberAt(0)); !refusal.empty()) return call.Refuse(refusal);
        m_reads.Screenshot(static_cast<std::int32_t>(call.NumberAt(0)),
                           [this, call](const QByteArray& png) { WriteTo(call, png); });
    });
}

void ScriptBus::PdfOfAll(const Call& call) {
    const QString file = call.TextAt(1);
    if (!IsAbsolute(PathToBytes(FromQt(file)))) return call.Refuse(u"The path has to begin at the root.");
    m_output.Pdf(call.NumbersAt(0), file, [call](const GroupOutput::Result& result) { call.Answer(result); });
}

void ScriptBus::KeepOffline(const Call& call) {
    m_output.Keep(call.NumbersAt(0), call.TextAt(1),
                  [call](const GroupOutput::Result& result) { call.Answer(result); });
}

void ScriptBus::CheckGroup(const Call& call) {
    const Text file = m_window.FileOf(FromQt(call.TextAt(0)));
    if (file.empty()) return call.Refuse(u"The TessaGroup could not be read: " + FromQt(call.TextAt(0)));
    m_checks.Check(file, [call](const std::vector<HealthLine>& lines) {
        QList<BusTab> list;
        for (const HealthLine& line : lines)
            list.append({static_cast<uint>(line.status), ToQt(WordsOf(line)), ToQt(line.address), ToQt(line.moved),
                         ToQt(WordOf(line.health))});
        call.Answer(QVariantList{QVariant::fromValue(list)});
    });
}

// Answered first: the command may ask its user something, or end the program.
void ScriptBus::RunCommand(const Call& call) {
    const Text tool = FromQt(call.TextAt(0));
    if (const auto refusal = m_window.MayRun(tool); !refusal.empty()) return call.Refuse(refusal);
    call.Answer();
    m_window.RunCommand(tool);
}

void ScriptBus::Wait(const Call& call) {
    const std::vector<std::uint32_t> numbers = call.NumbersAt(0);
    WhenLoaded(call, numbers, [this, call, numbers] {
        std::vector<std::uint32_t> all = numbers;
        for (const ScriptTab& tab : numbers.empty() ? m_window.List() : std::vector<ScriptTab>())
            all.push_back(tab.number);
        m_reads.Settle(all, [call] { call.Answer(); });
    });
}

void ScriptBus::ComeForward(const Call& call) {
    Foreground(call.TextAt(0).toUtf8());
    call.Answer();
}

void ScriptBus::Quit(const Call& call) {
    call.Answer();
    m_window.Quit();
}

} // namespace tessa::qt
