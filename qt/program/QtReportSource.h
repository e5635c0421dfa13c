#pragma once
#include "window/Report.h"

namespace tessa::qt {

class QtLog;

/// What this run can say of itself.
class QtReportSource final : public Report::Source {
public:
    /// The log outlives it.
    explicit QtReportSource(QtLog& log) : m_log(log) {}

    [[nodiscard]] Report::Facts Read() override;

private:
    QtLog& m_log;
};

} // namespace tessa::qt
