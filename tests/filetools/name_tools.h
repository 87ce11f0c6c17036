// SPDX-License-Identifier: GPL-3.0-or-later
// The main window, the tag editor and the name formatter on a folder of songs.
#pragma once

#include "filetools/format_mp3.h"
#include "support/player_stand.h"
#include "tagedit/tag_edit.h"

struct NameTools : PlayerStand {
    using PlayerStand::PlayerStand;

    /// Opens the name formatter on one of the songs.
    void openOn(const QString &song)
    {
        window.File1.setListIndex(static_cast<int>(window.File1.items().indexOf(song)));
        formatMp3.openOnSongs();
    }

    TagEdit tagEdit{window.player(), window.songs()};
    FormatMp3 formatMp3{window.player(), window.songs(), window.Info, tagEdit};
};
