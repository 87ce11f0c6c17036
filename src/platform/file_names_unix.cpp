// File names of Unix hosts: any bytes but NUL and the slash, mostly UTF-8.
#include "platform/file_names.h"

#include <QStringDecoder>

namespace
{
constexpr char16_t backslashStandIn = 0xF05C;
constexpr char16_t oddByteBase = 0xDC00; // Byte 0x80 to 0xFF becomes the lone surrogate U+DC80 to U+DCFF.

bool isOddByte(QChar c)
{
    return c >= QChar(oddByteBase + 0x80) && c <= QChar(oddByteBase + 0xFF);
}

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Decodes what is no valid UTF-8 as a whole: the longest valid stretches, the bytes between them one by one.
QString decodeOddName(QByteArrayView bytes)
{
    QString text;
    while (!bytes.isEmpty()) {
        qsizetype taken = 0;
        for (qsizetype length = 1; length <= std::min<qsizetype>(4, bytes.size()) && taken == 0; ++length) {
            QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
            const QString character = decoder(bytes.first(length));
            if (!decoder.hasError() && !character.contains(QChar::ReplacementCharacter)) {
                text += character;
                taken = length;
            }
        }
        if (taken == 0) {
            text += QChar(static_cast<char16_t>(oddByteBase + static_cast<unsigned char>(bytes.front())));
            taken = 1;
        }
        bytes = bytes.sliced(taken);
    }
    return text;
}

QString decode(QByteArrayView bytes)
{
    if (isAscii(bytes))
        return QString::fromLatin1(bytes);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? decodeOddName(bytes) : text;
}
} // namespace

QString nameFromHost(QByteArrayView hostName)
{
    QString text = decode(hostName);
    text.replace(u'\\', QChar(backslashStandIn));
    return text;
}

QByteArray nameToHost(QStringView name)
{
    QByteArray bytes;
    qsizetype start = 0;
    const auto flushUntil = [&](qsizetype end) { bytes += name.sliced(start, end - start).toUtf8(); };
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool paired = i > 0 && name[i - 1].isHighSurrogate();
        const bool odd = isOddByte(name[i]) && !paired;
        if (!odd && name[i] != QChar(backslashStandIn))
            continue;
        flushUntil(i);
        bytes += odd ? static_cast<char>(name[i].unicode() - oddByteBase) : '\\';
        start = i + 1;
    }
    flushUntil(name.size());
    return bytes;
}
