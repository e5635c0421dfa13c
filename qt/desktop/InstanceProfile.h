#pragma once
#include "base/os/FileLock.h"

#include <QString>

namespace tessa::qt {

/// The engine's profile of this instance, held by a lock that dies with its process. To end after the engine, which
/// goes on writing for a while when its profile has ended.
class InstanceProfile {
public:
    /// The folders of the first profile; further ones lie beside it. Without a folder what pages store is kept in
    /// memory. Takes nothing yet: a start that hands its command line over needs none.
    InstanceProfile(QString folder, QString cacheFolder);

    /// Takes the lowest profile that is free, unless it has one. Waits some seconds for one whose instance is ending.
    void Take();
    /// This instance is about to end: the next start may wait for its profile.
    void Leave();

    /// 1 for the first profile; 0 without one, for good or before it was taken.
    [[nodiscard]] int Number() const { return m_number; }
    /// Empty without a profile.
    [[nodiscard]] QString Folder() const;
    [[nodiscard]] QString CacheFolder() const;

private:
    [[nodiscard]] QString FolderOf(int number) const;

    QString m_folder, m_cacheFolder;
    FileLock m_lock;
    int m_number = 0;
};

} // namespace tessa::qt
