#include "qt/script/GroupChecks.h"

#include "groups/TessaGroups.h"
#include "qt/script/NetworkProbe.h"

#include <QTimer>
#include <utility>

namespace tessa::qt {

/// One of them, with a way into the network of its own.
struct GroupChecks::Running {
    Running(const AcceptedCertificates& accepted, const std::vector<Text>& addresses)
        : probe(accepted), check(probe, addresses) {}

    NetworkProbe probe;
    GroupCheck check;
};

GroupChecks::GroupChecks(const AcceptedCertificates& accepted) : m_accepted(accepted) {}
GroupChecks::~GroupChecks() = default;

void GroupChecks::Check(const Text& file, std::function<void(const std::vector<HealthLine>&)> checked) {
    std::vector<Text> addresses;
    for (const auto& each : TessaGroups::Load(file)) addresses.push_back(each.Key);
    m_running.emplace_back(m_accepted, addresses);
    const auto place = std::prev(m_running.end());
    place->check.Progress.ConnectForLife([this, place, told = std::move(checked)] {
        if (!place->check.Done()) return;
        told(place->check.Lines());
        // Later: it is still telling.
        QTimer::singleShot(0, &place->probe, [this, place] { m_running.erase(place); });
    });
    place->check.Start();
}

} // namespace tessa::qt
