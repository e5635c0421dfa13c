#pragma once
#include "groups/GroupCheck.h"
#include "platform/SteadyClock.h"
#include "platform/UserInput.h"
#include "platform/WallClock.h"
#include "platform/WindowTools.h"
#include "sessions/SessionOffer.h"
#include "settings/EngineOptions.h"
#include "tests/fakes/FakeDesktop.h"
#include "window/Report.h"

namespace tessa {

// What the program's entry does for its main window, as plain values.

class FakeClock final : public WallClock {
public:
    [[nodiscard]] std::int64_t Now() const override { return now; }
    [[nodiscard]] Text Words(std::int64_t seconds) const override {
        return words.empty() ? u"at " + Decimal(seconds) : words;
    }
    [[nodiscard]] std::int64_t DayBegin(std::int64_t seconds) const override { return seconds - seconds % 86'400; }
    std::int64_t now = 0;
    Text words; ///< of every time; else its seconds
};

/// A steady clock that the test turns.
class FakeSteadyClock final : public SteadyClock {
public:
    [[nodiscard]] Time Now() const override { return runs ? runs() : now; }
    Time now{0};
    std::function<Time()> runs; ///< what it says by itself
};

/// Asks no server; nobody hears an answer.
class FakeProbe final : public AddressProbe {
public:
    void Ask(const Text&, std::function<void(const ProbeAnswer&)>) override {}
    void StopAll() override {}
};

class FakeOffer final : public SessionOffer {
public:
    void Offer(TextView id, const Session&) override { offered = id; }
    void Withdraw() override { offered.clear(); }
    Text offered; ///< the session; empty for none
};

class FakeEngineOptions final : public EngineOptions {
public:
    explicit FakeEngineOptions(FakeLog& log) : m_log(log) {}
    void ApplyLoadOptions() override {
        if (applied) applied();
    }
    void ApplyInternetOptions() override { m_log.Add("internet options"); }
    void Clear(const BrowsingData& data, Forgotten done) override {
        m_log.Add(data.cookies ? "clear cookies" : "clear no cookies");
        done(Cleared::Yes);
    }
    std::function<void()> applied; ///< what is the case when the load options come into effect

private:
    FakeLog& m_log;
};

class FakeTools final : public WindowTools {
public:
    void ShowFind(BrowserView&) override { done += "find;"; }
    void ToggleDevTools() override { done += "dev tools;"; }
    void ShowTabList() override { done += "tabs;"; }
    void MoveDividers() override { done += "dividers;"; }
    void Customize() override { done += "customize;"; }
    std::string done;
};

class FakeInput final : public UserInput {
public:
    [[nodiscard]] bool ShiftHeld() const override { return shift; }
    void Copy(TextView text) override { copied = text; }
    bool shift = false;
    Text copied;
};

class FakeReport final : public Report::Source {
public:
    [[nodiscard]] Report::Facts Read() override { return {u"TessaView 3", u"by hand", {"a line", "another"}}; }
};

} // namespace tessa
