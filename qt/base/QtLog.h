#pragma once
#include "base/os/LogFile.h"

#include <QString>

/// The program's log in a folder: takes what the program notes and what Qt has to say, which still goes where it went
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
