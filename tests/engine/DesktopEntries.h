#pragma once
#include <QDir>
#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace tessa::qt {

/// A program that the desktop of the test has for addresses of some schemes, for as long as this lives.
class DesktopEntries {
public:
    explicit DesktopEntries(const QStringList& schemes, const QByteArray& id = "testapp.desktop") {
        QByteArray cache = "[MIME Cache]\n";
        for (const QString& scheme : schemes) cache += "x-scheme-handler/" + scheme.toLatin1() + "=" + id + ";\n";
        Write(QString::fromLatin1(id), "[Desktop Entry]\nType=Application\nExec=testapp %u\n");
        Write(QStringLiteral("mimeinfo.cache"), cache);
    }
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;
    ~DesktopEntries() {
        for (const QString& file : std::as_const(m_files)) QFile::remove(file);
    }

private:
    void Write(const QString& name, const QByteArray& text) {
        const QString folder = qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/applications");
        QDir().mkpath(folder);
        m_files << folder + u'/' + name;
        QFile file(m_files.constLast());
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(text);
    }
    QStringList m_files;
};

} // namespace tessa::qt
