#include "qt/script/ScriptCall.h"

#include "qt/base/Strings.h"
#include "script/BusNames.h"

#include <QDBusArgument>
#include <QDBusMetaType>

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

void ScriptCall::RegisterTypes() {
    qDBusRegisterMetaType<BusTab>();
    qDBusRegisterMetaType<QList<BusTab>>();
}

QVariant ScriptCall::OnBus(const std::vector<ScriptTab>& tabs) {
    QList<BusTab> list;
    for (const ScriptTab& tab : tabs)
        list.append({tab.number, QString::fromStdString(tab.title), QString::fromStdString(tab.address),
                     QString::fromStdString(tab.group), QString::fromStdString(tab.state)});
    return QVariant::fromValue(list);
}

QVariant ScriptCall::OnBus(const std::vector<std::uint32_t>& numbers) {
    return QVariant::fromValue(QList<uint>(numbers.begin(), numbers.end()));
}

QVariant ScriptCall::OnBus(const std::vector<HealthLine>& lines) {
    QList<BusTab> list;
    for (const HealthLine& line : lines)
        list.append({static_cast<uint>(line.status), ToQt(WordsOf(line)), ToQt(line.address), ToQt(line.moved),
                     ToQt(WordOf(line.health))});
    return QVariant::fromValue(list);
}

void ScriptCall::Refuse(TextView why) const {
    (void)bus.send(message.createErrorReply(QString::fromLatin1(BusNames::kRefused), ToQt(why)));
}

void ScriptCall::Answer(const ScriptedWindow::Refusal& refusal) const {
    refusal.empty() ? Answer(QVariantList()) : Refuse(refusal);
}

void ScriptCall::Answer(const GroupOutput::Result& result) const {
    result.refusal.isEmpty() ? Answer(QVariantList{result.left}) : Refuse(FromQt(result.refusal));
}

std::vector<std::uint32_t> ScriptCall::NumbersAt(int at) const {
    const auto list = qdbus_cast<QList<uint>>(message.arguments().value(at));
    return {list.begin(), list.end()};
}

void ScriptCall::Answer(const ScriptedWindow::Opened& opened) const {
    opened.refusal.empty() ? Answer(QVariantList{OnBus(opened.numbers)}) : Refuse(opened.refusal);
}

std::vector<Text> ScriptCall::TextsAt(int at) const {
    std::vector<Text> texts;
    for (const QString& each : qdbus_cast<QStringList>(message.arguments().value(at))) texts.push_back(FromQt(each));
    return texts;
}

} // namespace tessa::qt
