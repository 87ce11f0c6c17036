// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that people, other programs and crashes leave behind: what is read is kept by the next save, and every name and
// path leads back to the bytes it came from.
#include "base/ini_file.h"
#include "filetools/tidy_names.h"
#include "fuzz/targets.h"
#include "platform/ansi_text.h"
#include "platform/drives.h"
#include "platform/file_names.h"
#include "playlist/list_file.h"
#include "playlist/play_times.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
QString savedAndRead(const QString &text)
{
    const QString read = decodeTextFile(encodeTextFile(text));
    promise(read == text);
    return read;
}

// Does the list file's form hold the item? It knows no way to write a comma, for instance.
bool isPlainItem(const QString &item)
{
    constexpr QStringView separators = u",\r\n";
    const auto separates = [=](QChar c) { return separators.contains(c); };
    return !item.isEmpty() && item[0] != u' ' && item[0] != u'"' && std::none_of(item.begin(), item.end(), separates);
}

QString asOneValue(QString value)
{
    std::replace_if(
        value.begin(), value.end(), [](QChar c) { return c == u'\r' || c == u'\n' || c.isNull(); }, u' ');
    return value.left(longestIniValue);
}

QString sortedCharacters(QString text)
{
    std::sort(text.begin(), text.end());
    return text.remove(u' ');
}

// Without dots, doubled slashes and one at the end.
QByteArray cleanPath(const QByteArray &path)
{
    return QDir::cleanPath(QString::fromLatin1(path)).toLatin1();
}
} // namespace

void fuzz::list(QByteArrayView bytes)
{
    const QStringList fields = fieldsOf(savedAndRead(decodeTextFile(bytes)));
    QStringList kept = fieldsOf(savedAndRead(linesOf(fields)));
    promise(kept == fields || !std::all_of(fields.begin(), fields.end(), isPlainItem));
    kept.removeAll(QString()); // An empty line is no item.
    promise(fieldsOf(linesOf(kept)) == kept);
    const PlayTimeSum sum = addPlayTimes(fields, 0);
    promise(sum.error || sum.seconds <= fields.size() * (99 * 60 + 99));
}

void fuzz::settings(QByteArrayView bytes)
{
    const qsizetype lineEnd = std::max<qsizetype>(bytes.indexOf('\n'), 0);
    const QString value = decodeTextFile(bytes.first(lineEnd));
    const QString before = decodeTextFile(bytes.sliced(lineEnd));
    const QString after = savedAndRead(withIniValue(before, u"S", u"KEY", value));
    promise(iniValue(after, u"s", u"key") == asOneValue(value));
    promise(withIniValue(after, u"S", u"KEY", value) == after);
    for (const auto &[section, key] : {std::pair(u"S"_s, u"A"_s), {u"T"_s, u"KEY"_s}})
        promise(iniValue(after, section, key) == iniValue(before, section, key));
}

void fuzz::name(QByteArrayView bytes)
{
    const QString name = nameFromHost(bytes);
    promise(nameToHost(name) == bytes && !name.contains(u'\\'));
    const NameProposal proposal = proposeName(name);
    promise(!proposal.songName || !proposal.songName->startsWith(u' '));
    // These characters are rewritten after the words have got their capitals, or each time anew.
    constexpr QStringView rewritten = u"_~&(";
    if (std::none_of(name.begin(), name.end(), [=](QChar c) { return rewritten.contains(c); })) {
        promise(proposeName(proposal.name).name == proposal.name);
        promise(nameFromHost(nameToHost(proposal.name)) == proposal.name);
    }
    if (const auto swapped = withSidesSwapped(name))
        promise(sortedCharacters(*swapped) == sortedCharacters(name));
}

void fuzz::path(QByteArrayView bytes)
{
    const QByteArray given = '/' + bytes.toByteArray().replace('\0', "");
    const QString path = programPath(textFromBytes(given));
    promise(cleanPath(hostPath(path)) == cleanPath(given));
    promise(hostPath(path).endsWith('/') || !given.endsWith('/'));
    promise(programPath(path) == path && !displayPath(path).isEmpty());
    promise(pathOfUri(u"file://"_s + QString::fromLatin1(given.toPercentEncoding("/"))) == path);

    const QByteArray host = hostPath(decodeTextFile(bytes));
    if (host.startsWith('/'))
        promise(cleanPath(hostPath(programPath(textFromBytes(host)))) == cleanPath(host));
}
