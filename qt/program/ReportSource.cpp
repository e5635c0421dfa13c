#include "qt/program/ReportSource.h"

#include "qt/base/BuildInfo.h"
#include "qt/base/ProgramLog.h"
#include "qt/base/Strings.h"

namespace tessa::qt {

Report::Facts ReportSource::Read() {
    return {FromQt(BuildInfo::Text()), FromQt(BuildInfo::Drawing()), m_log.File().LastLines(Report::kLines)};
}

} // namespace tessa::qt
