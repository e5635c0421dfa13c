#pragma once
#include "window/Report.h"

namespace tessa::qt {

class ProgramLog;

/// What this run can say of itself.
class ReportSource final : public Report::Source {
public:
    /// The log outlives it.
    explicit ReportSource(ProgramLog& log) : m_log(log) {}

    [[nodiscard]] Report::Facts Read() override;

private:
    ProgramLog& m_log;
};

} // namespace tessa::qt
