#pragma once
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tessa {

/// What a signal keeps of its listeners, whatever they are told. An ended one keeps its place while others are told.
class SignalListeners {
public:
    struct Entry {
        virtual ~Entry() = default;
    };

    SignalListeners() = default;
    SignalListeners(const SignalListeners&) = delete;
    SignalListeners& operator=(const SignalListeners&) = delete;

    void Add(std::unique_ptr<Entry> entry) { m_entries.push_back(std::move(entry)); }
    [[nodiscard]] std::size_t Count() const { return m_entries.size(); }
    /// Nothing when that one has ended.
    [[nodiscard]] Entry* LiveAt(std::size_t index) const;
    [[nodiscard]] bool AnyLive() const;
    void End(const Entry* entry);
    void EndAll();
    void BeginTelling() { ++m_telling; }
    void EndTelling();

private:
    [[nodiscard]] bool Ended(const Entry* entry) const;
    void Sweep();

    std::vector<std::unique_ptr<Entry>> m_entries;
    std::vector<const Entry*> m_ended; ///< still in `m_entries`
    int m_telling = 0;
};

/// A listener's hold on a signal: the listener is called until the connection ends or goes. It may go after the signal.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    Connection(std::weak_ptr<SignalListeners> listeners, const SignalListeners::Entry* listener)
        : m_listeners(std::move(listeners)), m_listener(listener) {}
    Connection(Connection&& other) noexcept
        : m_listeners(std::move(other.m_listeners)), m_listener(std::exchange(other.m_listener, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        Connection old(std::move(*this));
        m_listeners = std::move(other.m_listeners);
        m_listener = std::exchange(other.m_listener, nullptr);
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { End(); }

    /// The listener is called no more. It may say so itself while it runs.
    void End() {
        const SignalListeners::Entry* listener = std::exchange(m_listener, nullptr);
        const auto listeners = std::exchange(m_listeners, {}).lock();
        if (listeners && listener) listeners->End(listener);
    }

private:
    std::weak_ptr<SignalListeners> m_listeners;
    const SignalListeners::Entry* m_listener = nullptr;
};

/// Connections that end together, with their owner. Declared last in a class, they end before what the listeners use.
class Connections {
public:
    Connections& operator+=(Connection connection) {
        m_all.push_back(std::move(connection));
        return *this;
    }
    void End() { m_all.clear(); }

private:
    std::vector<Connection> m_all;
};

template<typename Function>
class Signal;

/// Tells any number of listeners that something has happened, in the order in which they came. The type names what they
/// are told: `Signal<void(TextView folder)>`. While it tells them, listeners may come and go, and so may the signal.
/// New listeners are told the next time; when the signal goes, the rest is told nothing. For one thread.
template<typename... Arguments>
class Signal<void(Arguments...)> {
public:
    using Listener = std::function<void(Arguments...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    ~Signal() {
        if (m_listeners) m_listeners->EndAll();
    }

    /// Calls the listener until the connection goes.
    [[nodiscard]] Connection Connect(Listener listener) {
        const SignalListeners::Entry* added = Add(std::move(listener));
        return {m_listeners, added};
    }
    /// Calls the listener as long as there is a signal. For a listener that owns the signal, or lives longer.
    void ConnectForLife(Listener listener) { Add(std::move(listener)); }

    void operator()(Arguments... arguments) const {
        // A listener may end the signal.
        const std::shared_ptr<SignalListeners> all = m_listeners;
        if (!all) return;
        all->BeginTelling();
        for (std::size_t at = 0, present = all->Count(); at < present; ++at) {
            if (auto* entry = all->LiveAt(at)) static_cast<Told*>(entry)->listener(arguments...);
        }
        all->EndTelling();
    }
    [[nodiscard]] bool HasListeners() const { return m_listeners && m_listeners->AnyLive(); }

private:
    struct Told final : SignalListeners::Entry {
        explicit Told(Listener told) : listener(std::move(told)) {}
        Listener listener;
    };

    const SignalListeners::Entry* Add(Listener listener) {
        if (!m_listeners) m_listeners = std::make_shared<SignalListeners>();
        auto entry = std::make_unique<Told>(std::move(listener));
        const SignalListeners::Entry* added = entry.get();
        m_listeners->Add(std::move(entry));
        return added;
    }

    std::shared_ptr<SignalListeners> m_listeners; ///< made for the first; most signals have none
};

} // namespace tessa
