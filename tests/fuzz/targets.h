// SPDX-License-Identifier: GPL-3.0-or-later
// What the fuzzers and the corpus test feed. Each target takes any bytes, hands them from memory to rules of the
// player, and ends the program when a promise of theirs is broken. The folder of its seeds has its name.
#pragma once

#include <QByteArrayView>

inline void promise(bool kept)
{
    if (!kept)
        __builtin_trap();
}

namespace fuzz
{
void song(QByteArrayView bytes);     // A file's first bytes and its tag.
void list(QByteArrayView bytes);     // A play list file.
void settings(QByteArrayView bytes); // A value in the first line, after it a settings file.
void name(QByteArrayView bytes);     // A file's name, for which another one is proposed.
void path(QByteArrayView bytes);     // A path of the host, and the same text as one of the program.
void region(QByteArrayView bytes);   // A picture's width, then its pixels in four colours.
void archive(QByteArrayView bytes);  // A zip archive.
} // namespace fuzz
