// SPDX-License-Identifier: GPL-3.0-or-later
// What happens when a song ends. The modes are the check marks of the song menu and nothing else, so the menu's items
// live here, lowest among those who read them; what its commands do is the business of the menus (filetools/).
#pragma once

#include "controls/menu_items.h"

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

class PlayModes
{
public:
    explicit PlayModes(QObject *parent);

    MenuItems &songMenu() { return m_songMenu; }

    bool isChecked(SongMenuItem item) const { return m_songMenu.Checked(item); }

    /// Checks one play mode and takes the check marks off the others.
    void choose(SongMenuItem mode);

    /// Chooses a play mode, or takes its check mark off. Is it on now?
    bool toggle(SongMenuItem mode);

    /// Takes one play mode's check mark off.
    void drop(SongMenuItem mode) { m_songMenu.setChecked(mode, false); }

    /// Switches every play mode off.
    void clear();

private:
    MenuItems m_songMenu;
};
