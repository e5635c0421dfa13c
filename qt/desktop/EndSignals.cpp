#include "qt/desktop/EndSignals.h"

#include <QSocketNotifier>
#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace tessa::qt {

namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP, SIGINT};
int s_writeEnd = -1;

// In a signal's handler hardly anything is allowed; writing a byte is.
void OnSignal(int) {
    const char byte = 1;
    if (::write(s_writeEnd, &byte, 1) < 0) return;
}

} // namespace

EndSignals::EndSignals() {
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    s_writeEnd = ends[1];
    m_notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this, end = ends[0]] {
        std::array<char, 16> bytes{};
        if (::read(end, bytes.data(), bytes.size()) > 0) Quit();
    });
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

EndSignals::~EndSignals() {
    if (!m_notifier) return;
    // The program is ending already; hurrying it would only lose what it has still to save.
    for (const int signal : kSignals) std::signal(signal, SIG_IGN);
    ::close(static_cast<int>(m_notifier->socket()));
    ::close(s_writeEnd);
    s_writeEnd = -1;
}

} // namespace tessa::qt
