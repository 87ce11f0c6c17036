// SPDX-License-Identifier: GPL-3.0-or-later
// Songs made for tests of the sound.
#pragma once

#include "support/test_files.h"

#include <QtEndian>

/// A song of three seconds: the half second of a tone of 440 Hz in 16 bits, six times.
inline QString longSong(const TestFolder &folder)
{
    constexpr qsizetype headSize = 44;
    folder.copySample(QStringLiteral("tone-440.wav"));
    const QByteArray tone = folder.bytesOf(QStringLiteral("tone-440.wav"));
    const QByteArray sound = tone.sliced(headSize).repeated(6);
    const auto size = qToLittleEndian(static_cast<quint32>(sound.size()));
    return folder.makeFile(QStringLiteral("long.wav"),
                           tone.first(headSize - 4) + QByteArray(reinterpret_cast<const char *>(&size), 4) + sound);
}
