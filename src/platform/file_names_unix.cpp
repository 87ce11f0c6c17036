// SPDX-License-Identifier: GPL-3.0-or-later
// File names of Unix hosts: any bytes but NUL and the slash, mostly UTF-8.
#include "base/texts.h"
#include "platform/file_names.h"

#include <QStringDecoder>

#include <algorithm>

namespace
{
constexpr char16_t backslashStandIn = 0xF05C;
constexpr unsigned char otherStart = 0xEF; // First bytes of the stand-in, the byte-order mark, four-byte letters.
constexpr char16_t oddByteBase = 0xDC00;   // Byte 0x80 to 0xFF becomes the lone surrogate U+DC80 to U+DCFF.

bool isOddByte(QChar c)
{
    return c >= QChar(oddByteBase + 0x80) && c <= QChar(oddByteBase + 0xFF);
}

// Keeps U+FEFF at the start: it is a part of the name.
constexpr auto asGiven = QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom;

// How many bytes the character at the start takes; 0 when there is no valid one.
qsizetype characterBytes(QByteArrayView bytes)
{
    const qsizetype longest = std::min<qsizetype>(4, bytes.size());
    for (qsizetype length = 1; length <= longest; ++length) {
        if (bytes.first(length).isValidUtf8())
            return length;
    }
    return 0;
}

// Decodes what is no valid UTF-8 as a whole: the longest valid stretches, the bytes between them one by one.
QString decodeOddName(QByteArrayView bytes)
{
    QString text;
    while (!bytes.isEmpty()) {
        qsizetype valid = 0;
        while (const qsizetype more = characterBytes(bytes.sliced(valid)))
            valid += more;
        QStringDecoder decoder(QStringDecoder::Utf8, asGiven);
        text += decoder(bytes.first(valid));
        bytes = bytes.sliced(valid);
        if (bytes.isEmpty())
            break;
        text += QChar(static_cast<char16_t>(oddByteBase + static_cast<unsigned char>(bytes.front())));
        bytes = bytes.sliced(1);
    }
    return text;
}
} // namespace

QString textFromBytes(QByteArrayView bytes)
{
    if (isAscii(bytes))
        return QString::fromLatin1(bytes);
    QStringDecoder decoder(QStringDecoder::Utf8, asGiven);
    const QString text = decoder(bytes);
    return decoder.hasError() ? decodeOddName(bytes) : text;
}

QByteArray textToBytes(QStringView text)
{
    QByteArray bytes;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); i += characterLength(text, i)) {
        if (!isOddByte(text[i]))
            continue;
        bytes += text.sliced(start, i - start).toUtf8();
        bytes += static_cast<char>(text[i].unicode() - oddByteBase);
        start = i + 1;
    }
    return bytes + text.sliced(start).toUtf8();
}

QString withStandIns(QString hostText)
{
    const QChar ownBytes[] = {u'\xDCEF', u'\xDC81', u'\xDC9C'};
    if (hostText.contains(QChar(backslashStandIn)))
        hostText.replace(QStringView(&backslashStandIn, 1).toString(), QString(ownBytes, std::ssize(ownBytes)));
    return hostText.replace(u'\\', QChar(backslashStandIn));
}

QString nameFromHost(QByteArrayView hostName)
{
    return withStandIns(textFromBytes(hostName));
}

void appendNameFromHost(NameList &names, QByteArrayView hostName)
{
    const auto isOtherInLists = [](char c) { return c == '\\' || static_cast<unsigned char>(c) >= otherStart; };
    if (std::none_of(hostName.begin(), hostName.end(), isOtherInLists) && hostName.isValidUtf8())
        names.appendBytes(hostName);
    else
        names += nameFromHost(hostName);
}

QByteArray nameToHost(QStringView name)
{
    return textToBytes(name.toString().replace(QChar(backslashStandIn), u'\\'));
}
