#pragma once
#include "app/ScriptedWindow.h"
#include "groups/GroupHealth.h"
#include "qt/script/GroupOutput.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariant>
#include <cstdint>
#include <functional>
#include <vector>

namespace tessa::qt {

/// A call that has come by the bus, and how it is answered.
struct ScriptCall {
    QDBusMessage message;
    QDBusConnection bus;

    /// Makes the types of the interface known to the bus.
    static void RegisterTypes();
    [[nodiscard]] static QVariant OnBus(const std::vector<ScriptTab>& tabs);
    [[nodiscard]] static QVariant OnBus(const std::vector<std::uint32_t>& numbers);
    /// In the fields of tabs, see `TabList::CheckLines`.
    [[nodiscard]] static QVariant OnBus(const std::vector<HealthLine>& lines);

    void Answer(const QVariantList& values = {}) const { (void)bus.send(message.createReply(values)); }
    void Refuse(TextView why) const;
    /// Answers with nothing, unless it was refused.
    void Answer(const ScriptedWindow::Refusal& refusal) const;
    /// With what was left out, unless it was refused.
    void Answer(const GroupOutput::Result& result) const;
    /// With the numbers of the tabs that were opened, unless it was refused.
    void Answer(const ScriptedWindow::Opened& opened) const;
    [[nodiscard]] QString TextAt(int at) const { return message.arguments().value(at).toString(); }
    [[nodiscard]] bool FlagAt(int at) const { return message.arguments().value(at).toBool(); }
    [[nodiscard]] std::uint32_t NumberAt(int at) const { return message.arguments().value(at).toUInt(); }
    [[nodiscard]] std::vector<std::uint32_t> NumbersAt(int at) const;
    [[nodiscard]] std::vector<Text> TextsAt(int at) const;
};

/// A method of the interface: the signatures of what comes and of what is answered.
struct ScriptMethod {
    const char* name;
    const char* takes;
    const char* gives;
    std::function<void(const ScriptCall& call)> run;
};

} // namespace tessa::qt
