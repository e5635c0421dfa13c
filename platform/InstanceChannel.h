#pragma once
#include "base/ResumeNext.h"
#include "base/Signal.h"
#include "base/Text.h"

namespace tessa {

/// Whether several instances of the program may run at once, in the eyes of the one that starts.
enum class Instances { One, Several };

/// What the instances of one user and one state folder have in common. Owned by the program's entry.
class InstanceChannel {
public:
    virtual ~InstanceChannel() = default;

    /// Registers the message under whose name instances find each other. Comes first.
    virtual Outcome RegisterMessage(TextView name) = 0;
    /// True when another instance runs. When none does, or several may, this process becomes findable from now on.
    [[nodiscard]] virtual bool PreviousInstance(Instances allowed) = 0;
    /// Brings the running instance's window to the foreground; fails when there is none.
    virtual Outcome SetForegroundWindow() = 0;
    /// Sends the registered message with a text, whole or not at all. Waits until the running instance has handled it,
    /// 10 s at most.
    virtual Outcome SendMessage(TextView text) = 0;

    /// What to do on the message; nothing means that it is answered and ignored.
    Signal<void(const Text& text)> Message;
};

} // namespace tessa
