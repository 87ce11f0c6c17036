// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/play_modes.h"

using namespace Qt::StringLiterals;

PlayModes::PlayModes(QObject *parent)
    : m_songMenu(parent, u"mnuSongItem"_s,
                 {u"Mp3 Name Tools"_s, u"Refresh"_s, u"Delete Song"_s, u"Options"_s, u"Auto Play"_s, u"Repeat Song"_s,
                  u"Repeat All"_s, u"PlayList"_s, u"Song Search"_s, u"-"_s, u"About..."_s, u"Mp3 Info"_s})
{
    m_songMenu.setCheckable({AutoPlayItem, RepeatSongItem, RepeatAllItem});
}

void PlayModes::choose(SongMenuItem mode)
{
    clear();
    m_songMenu.setChecked(mode, true);
}

bool PlayModes::toggle(SongMenuItem mode)
{
    const bool on = !isChecked(mode);
    if (on)
        choose(mode);
    else
        drop(mode);
    return on;
}

void PlayModes::clear()
{
    for (const SongMenuItem mode : {AutoPlayItem, RepeatSongItem, RepeatAllItem})
        drop(mode);
}
