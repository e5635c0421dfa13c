#pragma once
#include "base/os/LogFile.h"

#include <QString>

namespace tessa::qt {

/// The program's log in a folder. Takes what the program notes and Qt's messages, which still go where they went
/// before. There is one at a time.
class QtLog {
public:
    explicit QtLog(const QString& folder);
    ~QtLog();
    QtLog(const QtLog&) = delete;
    QtLog& operator=(const QtLog&) = delete;

    [[nodiscard]] LogFile& File() { return m_file; }

private:
    LogFile m_file;
};

} // namespace tessa::qt
