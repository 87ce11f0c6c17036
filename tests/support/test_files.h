// A folder of a test's own, with files made for it. Paths are the program's.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QTemporaryDir>

class TestFolder
{
public:
    /// A folder in the system's temporary folder, or in the given host folder.
    explicit TestFolder(const QString &parent = QDir::tempPath());

    /// The folder as a program path, without a backslash at the end.
    QString path() const;

    /// The folder as a host path.
    QString hostPath() const { return m_folder.path(); }

    /// The program path of an entry, which need not exist.
    QString path(const QString &name) const;

    /// Makes a file and gives its program path. Fails the test run when it cannot.
    QString makeFile(const QString &name, const QByteArray &bytes = {}) const;

    /// Puts a copy of a file of tests/data here and gives its program path.
    QString copySample(const QString &sample, const QString &name = {}) const;

    /// Makes a folder and gives its program path.
    QString makeFolder(const QString &name) const;

    /// The bytes of a file; a missing one fails the test run.
    QByteArray bytesOf(const QString &name) const;

private:
    QTemporaryDir m_folder;
};
