// SPDX-License-Identifier: GPL-3.0-or-later
// The menu over the songs: the player's commands, and the play modes, whose only home are its check marks.
#pragma once

#include "controls/menu_items.h"
#include "playback/play_modes.h"

/// The song menu's items by index.
enum SongMenuItem {
    NameToolsItem,
    RefreshItem,
    DeleteSongItem,
    OptionsItem,
    AutoPlayItem,
    RepeatSongItem,
    RepeatAllItem,
    PlayListItem,
    SongSearchItem,
    SongMenuSeparator,
    AboutItem,
    Mp3InfoItem
};

class SongMenu : public QObject, public PlayModes
{
    Q_OBJECT

public:
    explicit SongMenu(QObject *parent = nullptr);

    MenuItems mnuSongItem;

    /// Checks a play mode and takes the check marks off the others, or takes its own off. Is it on now?
    bool toggle(SongMenuItem mode);

    /// "Auto Play" is the mark that repeats.
    bool isRepeating() const override { return mnuSongItem.Checked(AutoPlayItem); }

    /// The mark that advances belongs to "Options", which no command sets.
    bool isAdvancing() const override { return mnuSongItem.Checked(OptionsItem); }

    void clear() override;
};
