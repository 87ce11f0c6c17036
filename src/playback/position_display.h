// SPDX-License-Identifier: GPL-3.0-or-later
// Where the song is, how long it is, how loud, and the title that scrolls by: the display of the main window and the
// two sliders under it. Nothing is shown more often than it changes: a tick says when the next one will have news.
#pragma once

#include "controls/label.h"
#include "controls/scroll_bars.h"
#include "controls/text_box.h"
#include "controls/timer.h"
#include "playback/media_engine.h"

#include <cstdint>

/// The controls of the main window that show and take position, loudness and title.
struct DisplayControls {
    TextBox &Text1;       // Position, "/", length.
    HScrollBar &HScroll1; // Position in whole seconds.
    VScrollBar &VScroll1; // Loudness in hundredths of a decibel.
    Label &Label7;        // Title, four leading blanks; Timer4 rotates it.
    Timer &Timer1;        // On while a song plays: time text, position slider, volume slider.
    Timer &Timer4;        // On while a song plays: one step of the title every 100 ms.
};

/// The text rotated left by one character; "" stays "".
QString rotatedTitle(const QString &title);

/// "1:05/3:07" of two times in seconds.
QString timeText(double positionSeconds, double durationSeconds);

/// Milliseconds until a playing position, rounded to whole seconds, reads differently.
int msUntilNextSecond(double positionSeconds);

class PositionDisplay : public QObject
{
    Q_OBJECT

public:
    PositionDisplay(QObject *parent, MediaEngine &engine, DisplayControls controls);

    /// A song starts: the time runs from now on.
    void startTime();

    /// A song starts: its title (four blanks are put before it) scrolls from now on.
    void showTitle(const QString &title);

    /// The title goes on scrolling, whatever it is.
    void startTitle();

    /// No song: "0:00/0:00", the slider at its start, the time stands. The title is left alone.
    void showIdleTime();

    /// No title, and none scrolls.
    void clearTitle();
    void stopTitle();

    /// The last value the user gave the volume slider.
    std::int16_t CurrentVolume = 0;

    /// Nobody sees the window (or somebody does again): the timers rest.
    void setSeen(bool seen);

Q_SIGNALS:
    /// The tray's tip has another song to tell: its file name without the ending.
    void songNameChanged(const QString &name);

private:
    void connectHandlers();
    void Timer1_Timer();
    void Timer4_Timer();
    void HScroll1_Scroll();
    void HScroll1_Change();
    void VScroll1_Change();
    void tellSongName();

    MediaEngine &m_engine;
    DisplayControls m_controls;
    QString m_toldPath; // The song that the tray knows of.
};
