// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/song_menu.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr std::initializer_list<int> playModes = {AutoPlayItem, RepeatSongItem, RepeatAllItem};
} // namespace

SongMenu::SongMenu(QObject *parent)
    : QObject(parent),
      mnuSongItem(this, u"mnuSongItem"_s,
                  {u"Mp3 Name Tools"_s, u"Refresh"_s, u"Delete Song"_s, u"Options"_s, u"Auto Play"_s, u"Repeat Song"_s,
                   u"Repeat All"_s, u"PlayList"_s, u"Song Search"_s, u"-"_s, u"About..."_s, u"Mp3 Info"_s})
{
    mnuSongItem.setCheckable(playModes);
}

bool SongMenu::toggle(SongMenuItem mode)
{
    const bool on = !mnuSongItem.Checked(mode);
    if (on)
        clear();
    mnuSongItem.setChecked(mode, on);
    return on;
}

void SongMenu::clear()
{
    for (const int mode : playModes)
        mnuSongItem.setChecked(mode, false);
}
