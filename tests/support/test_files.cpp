// A folder of a test's own, with files made for it.
#include "support/test_files.h"

#include "platform/drives.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
QByteArray readWhole(const QString &hostPath)
{
    QFile file(hostPath);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(hostPath));
    return file.readAll();
}
} // namespace

TestFolder::TestFolder(const QString &parent) : m_folder(parent + u"/kiv-test-XXXXXX"_s)
{
    if (!m_folder.isValid())
        qFatal("no temporary folder");
}

QString TestFolder::path() const
{
    return programPath(m_folder.path());
}

QString TestFolder::path(const QString &name) const
{
    return path() + u'\\' + name;
}

QString TestFolder::makeFile(const QString &name, const QByteArray &bytes) const
{
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot make %s", qPrintable(name));
    return path(name);
}

QString TestFolder::copySample(const QString &sample, const QString &name) const
{
    return makeFile(name.isEmpty() ? sample : name, readWhole(QStringLiteral(KIV_TEST_DATA) + u'/' + sample));
}

QString TestFolder::makeFolder(const QString &name) const
{
    if (!QDir(m_folder.path()).mkpath(name))
        qFatal("cannot make %s", qPrintable(name));
    return path(name);
}

QByteArray TestFolder::bytesOf(const QString &name) const
{
    return readWhole(m_folder.filePath(name));
}
