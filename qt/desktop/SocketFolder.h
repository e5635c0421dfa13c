#pragma once
#include <QString>

namespace tessa::qt {

/// The folder in which the instances of one user find each other's sockets. It is the desktop's folder for such things,
/// or the program's own where none is the user's alone.
class SocketFolder {
public:
    SocketFolder() = default;
    ~SocketFolder();
    SocketFolder(const SocketFolder&) = delete;
    SocketFolder& operator=(const SocketFolder&) = delete;

    /// Finds the folder. `longestName` is the length of the longest file name that `PathOf` will be asked for.
    void Open(const QString& stateFolder, qsizetype longestName);
    [[nodiscard]] bool IsWritable() const;
    /// A path of the folder so short that a socket's address can name a file in it, however deep.
    /// Good for this process alone, while this object lives.
    [[nodiscard]] const QString& Path() const { return m_path; }
    [[nodiscard]] QString PathOf(const QString& name) const { return m_path + QLatin1Char('/') + name; }

private:
    QString m_path;
    int m_descriptor = -1;
};

} // namespace tessa::qt
