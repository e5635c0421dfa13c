#pragma once
#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// What a signal keeps of its listeners, as far as a connection needs to know it.
class SignalListeners {
public:
    SignalListeners() = default;
    SignalListeners(const SignalListeners&) = delete;
    SignalListeners& operator=(const SignalListeners&) = delete;
    virtual ~SignalListeners() = default;
    virtual void End(const void* listener) = 0;
};

/// A listener's hold on a signal: the listener is called until the connection ends or goes. It may go after the signal.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    Connection(std::weak_ptr<SignalListeners> listeners, const void* listener)
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
        const void* listener = std::exchange(m_listener, nullptr);
        const auto listeners = std::exchange(m_listeners, {}).lock();
        if (listeners && listener) listeners->End(listener);
    }

private:
    std::weak_ptr<SignalListeners> m_listeners;
    const void* m_listener = nullptr;
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
/// are told: `Signal<void(TextView folder)>`. While it tells them, listeners may come (they are told the next time) and
/// go, and the signal itself may go (the rest is told nothing). For one thread.
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
        Listeners& all = Made();
        all.entries.push_back(std::make_unique<Listener>(std::move(listener)));
        return {m_listeners, all.entries.back().get()};
    }
    /// Calls the listener for as long as there is a signal: for a listener that owns the signal, or lives longer.
    void ConnectForLife(Listener listener) {
        Made().entries.push_back(std::make_unique<Listener>(std::move(listener)));
    }

    void operator()(Arguments... arguments) const {
        if (const std::shared_ptr<Listeners> all = m_listeners) all->Tell(arguments...);
    }
    [[nodiscard]] bool HasListeners() const { return m_listeners && m_listeners->Any(); }

private:
    /// An ended listener keeps its place, empty, while others are being told.
    struct Listeners : SignalListeners {
        void Tell(const Arguments&... arguments) {
            ++telling;
            const std::size_t present = entries.size();
            for (std::size_t at = 0; at < present; ++at) {
                if (!Ended(entries[at].get())) (*entries[at])(arguments...);
            }
            if (--telling == 0) Sweep();
        }
        void End(const void* listener) override {
            ended.push_back(listener);
            if (telling == 0) Sweep();
        }
        void EndAll() {
            for (const auto& entry : entries) ended.push_back(entry.get());
            if (telling == 0) Sweep();
        }
        [[nodiscard]] bool Ended(const void* listener) const {
            return std::ranges::find(ended, listener) != ended.end();
        }
        [[nodiscard]] bool Any() const {
            return std::ranges::any_of(entries, [this](const auto& entry) { return !Ended(entry.get()); });
        }
        /// What a listener holds may itself end connections when it goes.
        void Sweep() {
            std::vector<std::unique_ptr<Listener>> gone;
            const auto isEnded = [this](const auto& entry) { return Ended(entry.get()); };
            for (auto& entry : entries) {
                if (isEnded(entry)) gone.push_back(std::move(entry));
            }
            std::erase(entries, nullptr);
            ended.clear();
        }

        std::vector<std::unique_ptr<Listener>> entries;
        std::vector<const void*> ended; ///< still in `entries`
        int telling = 0;
    };

    Listeners& Made() {
        if (!m_listeners) m_listeners = std::make_shared<Listeners>();
        return *m_listeners;
    }

    std::shared_ptr<Listeners> m_listeners; ///< made for the first; most signals have none
};
