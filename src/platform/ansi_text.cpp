// SPDX-License-Identifier: GPL-3.0-or-later
// Windows-1252. The code page equals ISO 8859-1 but for bytes 0x80 to 0x9F; the five of them without a character
// stand for the control character of the same code, so that no byte is lost.
#include "platform/ansi_text.h"

#include "base/texts.h"
#include "platform/file_names.h"

#include <algorithm>
#include <array>

namespace
{
constexpr int firstSpecial = 0x80;
constexpr std::array<char16_t, 32> specials = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";
constexpr int notThere = -1;

int ansiCode(QChar character)
{
    const char16_t code = character.unicode();
    const bool same = code < firstSpecial || (code >= firstSpecial + specials.size() && code <= 0xFF);
    if (same)
        return code;
    const auto found = std::find(specials.begin(), specials.end(), code);
    return found == specials.end() ? notThere : firstSpecial + static_cast<int>(found - specials.begin());
}

// Is it UTF-8? Windows-1252 hardly ever looks like it by chance.
bool isUtf8(QByteArrayView bytes)
{
    return bytes.startsWith(byteOrderMark) || (!isAscii(bytes) && bytes.isValidUtf8());
}
} // namespace

QByteArray toAnsi(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); i += characterLength(text, i)) { // One character, one byte.
        const int code = ansiCode(text[i]);
        bytes += code == notThere ? '?' : static_cast<char>(code);
    }
    return bytes;
}

bool fitsAnsi(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return ansiCode(c) != notThere; });
}

QString fromAnsi(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        const std::size_t special = code - static_cast<std::size_t>(firstSpecial);
        return QChar(code >= firstSpecial && special < specials.size() ? specials[special] : char16_t(code));
    });
    return text;
}

QByteArray encodeTextFile(const QString &text)
{
    const QByteArray plain = toAnsi(text);
    const bool isPlain = fitsAnsi(text) && !isUtf8(plain);
    return isPlain ? plain : byteOrderMark + textToBytes(text);
}

QString decodeTextFile(QByteArrayView bytes)
{
    if (bytes.startsWith(byteOrderMark))
        return textFromBytes(bytes.sliced(sizeof byteOrderMark - 1));
    return isUtf8(bytes) ? textFromBytes(bytes) : fromAnsi(bytes);
}
