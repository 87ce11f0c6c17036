// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drives.h"

#include "platform/entries.h"
#include "platform/file_names.h"

#include <QDir>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{
bool hasDrive(const QString &path)
{
    return path.size() >= 2 && path[1] == u':' && path[0].isLetter() && path[0] < QChar(0x80);
}

// The host folder of a drive without its last slash ("" for the root); nothing for an unknown drive.
std::optional<QString> driveRoot(QChar letter)
{
    switch (letter.toLower().unicode()) {
    case u'c':
        return dataFolder();
    case u'z':
        return QString();
    default:
        return std::nullopt;
    }
}

QString withSlashes(const QString &rest)
{
    QString text = rest;
    text.replace(u'\\', u'/');
    while (text.contains(u"//"_s))
        text.replace(u"//"_s, u"/"_s);
    return text;
}

// The entry of folder equal to name when case is ignored, the first in byte order when several are; name when none is.
std::optional<QByteArray> spellingOnDisk(const QByteArray &folder, const QByteArray &name)
{
    const auto entries = hostEntries(folder);
    if (!entries)
        return std::nullopt;
    const QString wanted = nameFromHost(name);
    QByteArray found;
    for (const QByteArray &entry : *entries) {
        const bool same = nameFromHost(entry).compare(wanted, Qt::CaseInsensitive) == 0;
        if (same && (found.isEmpty() || entry < found))
            found = entry;
    }
    return found.isEmpty() ? name : found;
}

// The bytes of a file URI on this machine. They need not be text, so they never become one.
QByteArray hostPathOf(const QUrl &uri)
{
    const bool isHere = uri.isLocalFile() && (uri.host().isEmpty() || uri.host() == u"localhost"_s);
    return isHere ? QByteArray::fromPercentEncoding(uri.path(QUrl::FullyEncoded).toLatin1()) : QByteArray();
}
} // namespace

QString dataFolder()
{
    const QString home = qEnvironmentVariable("KIV_MP3_HOME");
    if (!home.isEmpty())
        return QDir::cleanPath(QDir(home).absolutePath());
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/kiv-mp3"_s;
}

void makeDataFolder()
{
    QDir().mkpath(dataFolder());
}

QStringList drives()
{
    return {u"c:\\"_s, u"z:\\"_s};
}

QByteArray hostPath(const QString &path)
{
    if (!hasDrive(path))
        return nameToHost(withSlashes(path));
    const std::optional<QString> root = driveRoot(path[0]);
    if (!root)
        return {};
    const QString rest = withSlashes(path.mid(2));
    const QString separator = rest.startsWith(u'/') ? QString() : u"/"_s;
    return nameToHost(*root + separator + rest);
}

QByteArray hostPathOnDisk(const QString &path)
{
    return pathOnDiskIfKnown(path).value_or(hostPath(path));
}

std::optional<QByteArray> pathOnDiskIfKnown(const QString &path)
{
    const QByteArray exact = hostPath(path);
    if (exact.isEmpty() || hostEntry(exact) == Presence::There)
        return exact;
    QByteArray found = exact.startsWith('/') ? QByteArray("/") : QByteArray();
    for (const QByteArray &name : exact.split('/')) {
        if (name.isEmpty())
            continue;
        const QByteArray folder = found.isEmpty() ? QByteArray(".") : found;
        const QByteArray separator = found.isEmpty() || found.endsWith('/') ? QByteArray() : QByteArray("/");
        const bool exactName = hostEntry(found + separator + name) == Presence::There;
        const auto spelling = exactName ? name : spellingOnDisk(folder, name);
        if (!spelling)
            return std::nullopt;
        found += separator + *spelling;
    }
    return exact.endsWith('/') ? found + '/' : found;
}

QString spelledAsOnDisk(const QString &path)
{
    const QByteArray onDisk = hostPathOnDisk(path);
    return onDisk == hostPath(path) ? path : programPath(textFromBytes(onDisk));
}

QString programPath(const QString &anyPath)
{
    if (anyPath.isEmpty() || hasDrive(anyPath))
        return anyPath;
    if (anyPath.contains(u'\\') && !anyPath.contains(u'/'))
        return anyPath;
    const bool folderForm = anyPath.size() > 1 && anyPath.endsWith(u'/');
    QString absolute = QDir::cleanPath(QDir::current().absoluteFilePath(anyPath));
    if (folderForm && absolute != u"/"_s)
        absolute += u'/';
    absolute = withStandIns(absolute);
    const QString data = dataFolder();
    if (absolute == data || absolute.startsWith(data + u'/'))
        absolute = u"c:"_s + (absolute == data ? u"/"_s : absolute.mid(data.size()));
    else
        absolute.prepend(u"z:"_s);
    return absolute.replace(u'/', u'\\');
}

QString displayPath(const QString &path)
{
    const QByteArray host = hostPath(path);
    if (host.isEmpty())
        return path; // On a drive that this host does not have.
    QString text = QString::fromUtf8(host);
    while (text.size() > 1 && text.endsWith(u'/'))
        text.chop(1);
    return text;
}

QString fileUri(const QString &path)
{
    const QByteArray host = hostPathOnDisk(path);
    return host.startsWith('/') ? u"file://"_s + QString::fromLatin1(host.toPercentEncoding("/")) : QString();
}

QString pathOfUri(const QString &uri)
{
    const QByteArray host = uri.startsWith(u'/') ? textToBytes(uri) : hostPathOf(QUrl(uri));
    return host.startsWith('/') && !host.contains('\0') ? programPath(textFromBytes(host)) : QString();
}
