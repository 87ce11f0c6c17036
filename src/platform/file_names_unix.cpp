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
        if (isAscii(bytes.first(1))) { // Most of a long text.
            text += QLatin1Char(bytes.front());
            taken = 1;
        }
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

} // namespace

QString textFromBytes(QByteArrayView bytes)
{
    if (isAscii(bytes))
        return QString::fromLatin1(bytes);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return decoder.hasError() ? decodeOddName(bytes) : text;
}

QByteArray textToBytes(QStringView text)
{
    QByteArray bytes;
    qsizetype start = 0;
    const auto flushUntil = [&](qsizetype end) { bytes += text.sliced(start, end - start).toUtf8(); };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool paired = i > 0 && text[i - 1].isHighSurrogate();
        if (!isOddByte(text[i]) || paired)
            continue;
        flushUntil(i);
        bytes += static_cast<char>(text[i].unicode() - oddByteBase);
        start = i + 1;
    }
    flushUntil(text.size());
    return bytes;
}

QString nameFromHost(QByteArrayView hostName)
{
    QString text = textFromBytes(hostName);
    text.replace(u'\\', QChar(backslashStandIn));
    return text;
}

QByteArray nameToHost(QStringView name)
{
    QString text = name.toString();
    text.replace(QChar(backslashStandIn), u'\\');
    return textToBytes(text);
}
