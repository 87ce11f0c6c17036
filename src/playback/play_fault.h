// SPDX-License-Identifier: GPL-3.0-or-later
// Why a song could not be played: the kinds of failure, their numbers and their sentences.
#pragma once

#include "base/last_error.h"

#include <QString>

#include <optional>

enum class PlayFault {
    LibraryMissing = 48, // The library for this kind of song is not installed, or refuses to start.
    SongMissing = 53,
    SongEmpty = 62,
    DeviceRefused = 68,
    NoPermission = 70,
    IsFolder = 75, // A folder, also a path without a name after its last backslash.
    NotSound = 321,
    NoSoundInside = 326, // A film or a picture without a sound track, or sound in which nothing can be decoded.
    Unknown = 440,
};

/// The error to record for a song, given by its program path: the number is the kind, the source "MediaPlayer1", the
/// description a sentence with the file's name in the host's form. The detail is put behind it where there is one.
ErrorRecord playError(PlayFault fault, const QString &path, const QString &detail = {});

/// What can be seen without playing: is there a song file to open at all? Nothing when there is.
std::optional<PlayFault> faultBeforePlaying(const QString &path);
