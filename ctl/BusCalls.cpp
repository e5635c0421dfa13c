#include "ctl/BusCalls.h"

#include "script/BusNames.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <systemd/sd-bus.h>

namespace tessa {

namespace {

struct Error {
    Error() = default;
    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;
    ~Error() { sd_bus_error_free(&error); }

    [[nodiscard]] bool Is(std::string_view name) const { return error.name && error.name == name; }
    sd_bus_error error = SD_BUS_ERROR_NULL;
};

struct Unref {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, Unref>;

bool Append(sd_bus_message& message, const std::string& text) {
    return sd_bus_message_append_basic(&message, 's', text.c_str()) >= 0;
}

bool Append(sd_bus_message& message, bool flag) {
    const int value = flag;
    return sd_bus_message_append_basic(&message, 'b', &value) >= 0;
}

bool Append(sd_bus_message& message, std::uint32_t number) {
    return sd_bus_message_append_basic(&message, 'u', &number) >= 0;
}

template<typename Element>
bool AppendAll(sd_bus_message& message, const char* type, const std::vector<Element>& list) {
    bool done = sd_bus_message_open_container(&message, 'a', type) >= 0;
    for (const Element& each : list) done = done && Append(message, each);
    return done && sd_bus_message_close_container(&message) >= 0;
}

bool Append(sd_bus_message& message, const std::vector<std::string>& list) { return AppendAll(message, "s", list); }
bool Append(sd_bus_message& message, const std::vector<std::uint32_t>& list) { return AppendAll(message, "u", list); }

std::string TextFrom(sd_bus_message& message) {
    const char* text = nullptr;
    return sd_bus_message_read_basic(&message, 's', &text) > 0 && text ? text : "";
}

void ReadTabs(sd_bus_message& message, std::vector<ScriptTab>& tabs) {
    if (sd_bus_message_enter_container(&message, 'a', "(ussss)") < 0) return;
    while (sd_bus_message_enter_container(&message, 'r', "ussss") > 0) {
        ScriptTab tab;
        (void)sd_bus_message_read_basic(&message, 'u', &tab.number);
        for (std::string* field : {&tab.title, &tab.address, &tab.group, &tab.state}) *field = TextFrom(message);
        tabs.push_back(std::move(tab));
        if (sd_bus_message_exit_container(&message) < 0) return;
    }
}

BusCalls::Answer Read(sd_bus_message& reply) {
    BusCalls::Answer answer;
    answer.result = BusCalls::Result::Done;
    if (sd_bus_message_has_signature(&reply, "a(ussss)") > 0) ReadTabs(reply, answer.tabs);
    if (sd_bus_message_has_signature(&reply, "s") > 0) answer.words = TextFrom(reply);
    if (sd_bus_message_has_signature(&reply, "au") > 0 && sd_bus_message_enter_container(&reply, 'a', "u") >= 0) {
        for (std::uint32_t number = 0; sd_bus_message_read_basic(&reply, 'u', &number) > 0;)
            answer.numbers.push_back(number);
    }
    if (sd_bus_message_has_signature(&reply, "as") > 0 && sd_bus_message_enter_container(&reply, 'a', "s") >= 0) {
        for (const char* text = nullptr; sd_bus_message_read_basic(&reply, 's', &text) > 0;)
            answer.texts.emplace_back(text);
    }
    return answer;
}

BusCalls::Answer Failure(const Error& error, int result) {
    using Result = BusCalls::Result;
    const bool nobody = error.Is(SD_BUS_ERROR_SERVICE_UNKNOWN) || error.Is(SD_BUS_ERROR_NAME_HAS_NO_OWNER);
    if (nobody) return {Result::NothingRuns, "TessaView does not run.", {}, {}, {}};
    // First: this comes as a time-out, too.
    if (error.Is(SD_BUS_ERROR_NO_REPLY)) return {Result::Refused, "TessaView has ended without an answer.", {}, {}, {}};
    if (result == -ETIMEDOUT || error.Is(SD_BUS_ERROR_TIMEOUT))
        return {Result::TimeOut, "TessaView has not answered in time.", {}, {}, {}};
    return {Result::Refused, error.error.message ? error.error.message : "The bus refused the call.", {}, {}, {}};
}

} // namespace

BusCalls::BusCalls(std::string name) : m_name(std::move(name)) {
    if (sd_bus_open_user(&m_bus) < 0) m_bus = nullptr;
}

BusCalls::~BusCalls() { sd_bus_flush_close_unref(m_bus); }

std::string BusCalls::Owner() const {
    sd_bus_message* reply = nullptr;
    const Error error;
    const int result =
        m_bus ? sd_bus_call_method(m_bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                   "GetNameOwner", nullptr, &reply, "s", m_name.c_str())
              : -ENOTCONN;
    const Message held(reply);
    return result >= 0 ? TextFrom(*reply) : std::string();
}

BusCalls::Answer BusCalls::Call(const char* method, std::initializer_list<Argument> arguments, Deadline until) const {
    if (!m_bus) return {Result::NothingRuns, "There is no session bus.", {}, {}, {}};
    sd_bus_message *made = nullptr, *answered = nullptr;
    if (sd_bus_message_new_method_call(m_bus, &made, m_name.c_str(), BusNames::kObject, BusNames::kInterface, method) <
        0)
        return {Result::Refused, "The call could not be made.", {}, {}, {}};
    const Message call(made);
    (void)sd_bus_message_set_auto_start(made, 0);
    bool appended = true;
    for (const Argument& each : arguments)
        appended = appended && std::visit([made](const auto& value) { return Append(*made, value); }, each);
    if (!appended) return {Result::Refused, "An argument is no valid UTF-8, or too long.", {}, {}, {}};
    Error error;
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(until - std::chrono::steady_clock::now());
    const auto patience = static_cast<std::uint64_t>(std::max<std::int64_t>(left.count(), 1));
    const int result = sd_bus_call(m_bus, made, patience, &error.error, &answered);
    const Message reply(answered);
    return result >= 0 ? Read(*answered) : Failure(error, result);
}

} // namespace tessa
