#pragma once
#include "ctl/BusCalls.h"
#include "script/CtlArguments.h"

#include <string>

namespace tessa {

/// Does what one command line of `tessaviewctl` says.
class CtlRun {
public:
    explicit CtlRun(const CtlArguments::Call& call);

    /// What was answered goes to the standard output, what went wrong to the standard error.
    [[nodiscard]] CtlArguments::Exit Run();

private:
    using Exit = CtlArguments::Exit;
    using Answer = BusCalls::Answer;

    [[nodiscard]] Exit Print(const Answer& answer) const;
    [[nodiscard]] Exit Fail(Exit code, const std::string& words) const;
    [[nodiscard]] Exit Begin();
    [[nodiscard]] Exit Open();
    [[nodiscard]] Exit OpenGroup();
    [[nodiscard]] Exit Opened(const Answer& answer);
    [[nodiscard]] Exit Pdf();
    [[nodiscard]] Answer OfGroup(const char* method);
    [[nodiscard]] Exit Kept(const Answer& answer) const;
    [[nodiscard]] Exit Reload();
    [[nodiscard]] Exit Quit();
    void ComeForward();
    [[nodiscard]] Answer Ask(const char* method, std::initializer_list<BusCalls::Argument> arguments);

    const CtlArguments::Call& m_call;
    const std::string m_folder;
    const BusCalls m_bus;
    const BusCalls::Deadline m_until;
    bool m_started = false; ///< by us
};

} // namespace tessa
