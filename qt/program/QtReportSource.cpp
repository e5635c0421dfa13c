#include "qt/program/QtReportSource.h"

#include "qt/base/QtBuildInfo.h"
#include "qt/base/QtLog.h"
#include "qt/base/QtText.h"

namespace tessa::qt {

Report::Facts QtReportSource::Read() {
    return {FromQt(QtBuildInfo::Text()), FromQt(QtBuildInfo::Drawing()), m_log.File().LastLines(Report::kLines)};
}

} // namespace tessa::qt
