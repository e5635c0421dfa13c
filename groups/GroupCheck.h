#pragma once
#include "base/Outcome.h"
#include "base/Signal.h"
#include "groups/GroupHealth.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace tessa {

/// Asks for addresses, by the program's own way into the network. Owned by the program's entry.
class AddressProbe {
public:
    virtual ~AddressProbe() = default;
    /// Asks once, without cookies, and follows nothing. `answered` hears it once, later; never after `StopAll`.
    virtual void Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) = 0;
    /// Nobody wants the answers any more that have not come.
    virtual void StopAll() = 0;
};

/// Asks for every address of a group: eight hosts at a time, of each host one.
class GroupCheck {
public:
    static constexpr std::size_t kMostHosts = 8;

    /// The probe outlives it. Each address is asked for once, however often it is there.
    GroupCheck(AddressProbe& probe, const std::vector<Text>& addresses);
    ~GroupCheck() { Stop(); }
    GroupCheck(const GroupCheck&) = delete;
    GroupCheck& operator=(const GroupCheck&) = delete;

    void Start();
    /// What was not answered stays unchecked.
    void Stop();

    /// One more is known, or all are.
    Signal<void()> Progress;
    [[nodiscard]] std::size_t Known() const { return m_known; }
    [[nodiscard]] std::size_t All() const { return m_trails.size(); }
    [[nodiscard]] bool Done() const { return m_stopped || m_known == m_trails.size(); }
    /// In the order of the addresses, each once.
    [[nodiscard]] std::vector<HealthLine> Lines() const;

private:
    void AskOn();
    void Ask(std::size_t at, const Text& host);
    void Take(std::size_t at, const Text& host, const ProbeAnswer& answer);

    AddressProbe& m_probe;
    std::vector<HealthTrail> m_trails;
    std::vector<std::size_t> m_waiting; ///< places in `m_trails`, in order
    std::set<Text> m_asked;             ///< hosts that have not answered yet
    std::size_t m_known = 0;
    bool m_stopped = false;
};

/// A group whose addresses are checked, and where they are mended.
class MendedGroup {
public:
    virtual ~MendedGroup() = default;
    /// The path of its file.
    [[nodiscard]] virtual const Text& File() const = 0;
    [[nodiscard]] virtual std::vector<Text> Addresses() const = 0;
    /// Takes a change back; fails when that cannot be done any more.
    using TakeBack = std::function<Outcome()>;
    /// Puts the new address for each old one, or takes it out where the new one is empty. Empty when it could not.
    [[nodiscard]] virtual TakeBack Change(const std::map<Text, Text>& changes) = 0;
};

/// That of a file, which is read and written at once.
[[nodiscard]] std::shared_ptr<MendedGroup> MendedFile(Text path);

/// Changes of a group's file, by the rules of the profile functions.
namespace GroupMending {

/// What a change leaves behind, to take it back.
struct Before {
    std::string bytes, after;
};

/// Puts the new address for each old one, or takes its key out where the new one is empty. Only what still stands there
/// is changed, and the new address opens as the old one did. The file is written once, whole. Nothing when it could not
/// be.
[[nodiscard]] std::optional<Before> Change(TextView path, const std::map<Text, Text>& changes);
/// Puts back what was there, unless somebody else has changed the file since.
[[nodiscard]] Outcome Undo(TextView path, const Before& before);

} // namespace GroupMending

} // namespace tessa
