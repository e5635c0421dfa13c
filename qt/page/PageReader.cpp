#include "qt/page/PageReader.h"

#include "history/Passages.h"
#include "qt/base/Resources.h"
#include "qt/base/Strings.h"
#include "qt/page/WebPage.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <utility>

namespace tessa::qt {

namespace {

const QString& ReaderScript() {
    static const QString script = Resources::ReadText(QStringLiteral("page-reader.js"));
    return script;
}

// A text as a script has it.
QString Quoted(const QString& text) {
    const QString array = QString::fromUtf8(QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact));
    return array.mid(1, array.size() - 2);
}

// What the engine gives without any script: lines, of which nobody knows what they are.
Text PlainLinesOf(const QString& address, const QString& words) {
    QString gathered = u'u' + address;
    for (const QString& each :
         words.left(static_cast<qsizetype>(Passages::kMostBytes)).split(u'\n', Qt::SkipEmptyParts))
        gathered += QStringLiteral("\np") + each;
    return FromQt(gathered);
}

} // namespace

// Whatever runs in a page that sleeps wakes it.
bool PageReader::Awake() const {
    return !m_page.Ended() && m_page.lifecycleState() != QWebEnginePage::LifecycleState::Discarded;
}

void PageReader::ReadText(std::function<void(Text)> answer) {
    if (!m_page.settings()->testAttribute(QWebEngineSettings::JavascriptEnabled))
        return GlanceAtText(std::move(answer));
    if (!Awake()) return;
    m_page.Ask(ReaderScript() + QStringLiteral("tessaReader.read()"),
               [answer](const QVariant& text) { answer(FromQt(text.toString())); });
}

// No script comes into the page for it, so that it takes a sixth of the time.
void PageReader::GlanceAtText(std::function<void(Text)> answer) {
    if (!Awake()) return;
    const QString address = m_page.ShownAddress().toString(QUrl::FullyEncoded);
    m_page.toPlainText(
        [answer = std::move(answer), address](const QString& words) { answer(PlainLinesOf(address, words)); });
}

void PageReader::ShowPassages(const std::vector<Text>& passages, std::size_t first) {
    if (!Awake()) return;
    QJsonArray all;
    for (const Text& each : passages) all.append(ToQt(each));
    m_page.runJavaScript(ReaderScript() +
                             QStringLiteral("tessaReader.show(%2, %1)")
                                 .arg(first)
                                 .arg(QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact))),
                         QWebEngineScript::ApplicationWorld);
}

void PageReader::Tell(TextView message) {
    if (!Awake()) return;
    const QString script =
        Resources::ReadText(QStringLiteral("history-page.js")).replace(QStringLiteral("%1"), m_page.Token());
    m_page.runJavaScript(script + QStringLiteral("tessaOwn(") + Quoted(ToQt(message)) + QStringLiteral(")"),
                         QWebEngineScript::ApplicationWorld);
}

} // namespace tessa::qt
