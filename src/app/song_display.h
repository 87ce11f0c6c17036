// SPDX-License-Identifier: GPL-3.0-or-later
// Where the song is, how long it is, how loud, and the title that scrolls by: the display of the main window and the
// two sliders under it. Nothing is shown more often than it changes: a tick says when the next one is due.
#pragma once

#include "base/timer.h"
#include "controls/fields.h"
#include "controls/label.h"
#include "controls/scroll_bars.h"
#include "playback/player.h"

/// The controls of the main window that show and take position, loudness and title.
struct DisplayControls {
    TextBox &Text1;       // Position, "/", length.
    HScrollBar &HScroll1; // Position in whole seconds.
    VScrollBar &VScroll1; // Loudness in hundredths of a decibel.
    Label &Label7;        // Title, four leading blanks; Timer4 rotates it.
    Timer &Timer1;        // On while a song plays: time text, position slider, volume slider.
    Timer &Timer4;        // On while a song plays: one step of the title every 100 ms.
};

class SongDisplay
{
public:
    SongDisplay(const Player &player, DisplayControls controls);

    /// A song starts: the time runs from now on.
    void startTime();

    /// A song starts: its title (four blanks are put before it) scrolls from now on.
    void showTitle(const QString &title);

    /// The title goes on scrolling, whatever it is.
    void startTitle();

    /// Position and length of the song, and the loudness, as they are; sleeps until the time text changes.
    void showTime();

    /// The position slider moved otherwise than by its thumb, which does not seek: the next tick puts it back.
    void restoreSlider();

    /// The title turns by a character.
    void turnTitle();

    /// No song: "0:00/0:00", the slider at its start, the time stands. The title is left alone.
    void showIdleTime();

    /// No title, and none scrolls.
    void clearTitle();
    void stopTitle();

    /// Nobody sees the window (or somebody does again): the timers rest.
    void setSeen(bool seen);

private:
    const Player &m_player;
    DisplayControls m_controls;
};
