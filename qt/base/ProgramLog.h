#pragma once
#include "base/os/LogFile.h"

#include <QString>

namespace tessa::qt {

/// The program's log in a folder. Takes what the program notes and Qt's messages, which still go where they went
/// before. There is one at a time.
class ProgramLog {
public:
    explicit ProgramLog(const QString& folder);
    ~ProgramLog();
    ProgramLog(const ProgramLog&) = delete;
    ProgramLog& operator=(const ProgramLog&) = delete;

    [[nodiscard]] LogFile& File() { return m_file; }

private:
    LogFile m_file;
};

} // namespace tessa::qt
