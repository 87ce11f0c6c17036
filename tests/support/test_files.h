// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of a test's own, with files made for it. Paths are the program's. What cannot be made or read ends the test
// run.
#pragma once

#include "platform/drives.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

/// Removes a file of the program's paths, exactly this one. False when there was none.
inline bool removeFile(const QString &path)
{
    return std::remove(hostPath(path).constData()) == 0;
}

class TestFolder
{
public:
    /// A folder in the system's temporary folder, or in the given host folder.
    explicit TestFolder(const QString &parent = QDir::tempPath())
        : m_folder(parent + QStringLiteral("/kiv-test-XXXXXX"))
    {
        insist(m_folder.isValid(), parent);
    }

    /// The folder as a program path, without a backslash at the end.
    QString path() const { return programPath(m_folder.path()); }

    /// The folder as a host path.
    QString hostPath() const { return m_folder.path(); }

    /// The program path of an entry, which need not exist.
    QString path(const QString &name) const { return path() + u'\\' + name; }

    /// Makes a file and gives its program path.
    QString makeFile(const QString &name, const QByteArray &bytes = {}) const
    {
        QFile file(m_folder.filePath(name));
        insist(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), name);
        return path(name);
    }

    /// Puts a copy of a file of tests/data here and gives its program path.
    QString copySample(const QString &sample, const QString &name = {}) const
    {
        return makeFile(name.isEmpty() ? sample : name, sampleBytes(sample));
    }

    static QByteArray sampleBytes(const QString &sample)
    {
        return readWhole(QStringLiteral(KIV_TEST_DATA "/") + sample);
    }

    /// Makes a folder and gives its program path.
    QString makeFolder(const QString &name) const
    {
        insist(QDir(m_folder.path()).mkpath(name), name);
        return path(name);
    }

    QByteArray bytesOf(const QString &name) const { return readWhole(m_folder.filePath(name)); }

private:
    static void insist(bool isDone, const QString &name)
    {
        if (!isDone)
            qFatal("cannot make or read %s", qPrintable(name));
    }

    static QByteArray readWhole(const QString &hostPath)
    {
        QFile file(hostPath);
        insist(file.open(QIODevice::ReadOnly), hostPath);
        return file.readAll();
    }

    QTemporaryDir m_folder;
};
