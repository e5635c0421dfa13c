#pragma once
#include "base/os/FileLock.h"
#include "platform/SessionFiles.h"

#include <QObject>
#include <QString>
#include <QThreadPool>
#include <vector>

namespace tessa::qt {

/// Sessions as files of a folder, one a run. A run holds a lock beside its file as long as it lives. So no other run
/// takes its session for one that has ended. Files are written behind the scenes, in order;
/// this object ends when all are on disk.
class DiskSessionFiles final : public SessionFiles {
public:
    /// The folder is made when the first session is written.
    explicit DiskSessionFiles(QString folder);
    ~DiskSessionFiles() override;

    void WriteOwn(const std::string& bytes, Written done) override;
    [[nodiscard]] std::vector<KeptSession> Earlier() override;
    void Rewrite(TextView Id, const std::string& bytes, Written done) override;

private:
    [[nodiscard]] QString PathOf(const QString& name) const;
    [[nodiscard]] QString LockOf(const QString& name) const;
    bool Begin();
    bool HasEnded(const QString& name) const;
    void Remove(const QString& name) const;
    void RemoveLeftovers() const;
    void WriteLater(const QString& name, const std::string& bytes, Written done);

    QString m_folder, m_own;
    FileLock m_lock;
    QObject m_window; ///< lives in the window's thread, where those who write are told how it went
    QThreadPool m_writer;
};

} // namespace tessa::qt
