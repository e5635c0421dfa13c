#pragma once
#include "base/Text.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tessa {

/// How it stands with an address.
enum class Health {
    Fine,
    Moved,       ///< for good, to an address that answers
    Gone,        ///< the server says so, or there is no such host
    Refused,     ///< by the server, or by whom the connection was tried with
    Certificate, ///< it cannot be trusted
    TimeOut,
    Failed,    ///< something else is wrong, as redirects without end
    FileThere, ///< on this computer
    FileGone,
    NotChecked, ///< it is for another program, or for the engine alone
};

/// What came back when an address was asked for once.
struct ProbeAnswer {
    enum class Trouble { None, NoHost, Refused, Certificate, TimeOut, Other };
    Trouble trouble = Trouble::None;
    int status = 0;  ///< of HTTP, when there is no trouble
    Text location{}; ///< where a redirect leads, as a whole address; else empty
};

/// What has become of one address.
struct HealthLine {
    Text address;
    Health health = Health::NotChecked;
    Text moved{};   ///< where to, when it has moved
    int status = 0; ///< of HTTP; 0 without an answer

    bool operator==(const HealthLine&) const = default;
};

/// Follows one address, answer by answer.
class HealthTrail {
public:
    static constexpr std::size_t kMostRedirects = 10;

    explicit HealthTrail(Text address);

    /// What is to be asked for next; empty once it is known how it stands.
    [[nodiscard]] const Text& Next() const { return m_next; }
    void Take(const ProbeAnswer& answer);
    [[nodiscard]] const HealthLine& Line() const { return m_line; }

private:
    void Follow(const ProbeAnswer& answer);
    void End(Health health);

    HealthLine m_line;
    Text m_next;
    std::vector<Text> m_been;
    bool m_forGood = true; ///< all redirects so far
};

/// The health in words, as a list shows it.
[[nodiscard]] Text WordsOf(const HealthLine& line);
/// The same as one word, for a script.
[[nodiscard]] Text WordOf(Health health);

/// Where an archive has older copies of a page. In the service "%s" stands for the address; without it the address
/// follows. Of a service that is no address of the web, empty among them, the one by design is taken.
[[nodiscard]] Text ArchivedAt(TextView service, TextView address);

/// The host of an address of the web with its port, by which requests are spread; empty for any other.
[[nodiscard]] Text HostOfWeb(TextView address);

} // namespace tessa
