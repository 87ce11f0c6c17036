// SPDX-License-Identifier: GPL-3.0-or-later
// The play list window: the songs, their play times beside them, and a line that counts both. It plays a song on a
// double-click, removes one with Delete, and goes on to the next one, in order or at random, when asked to.
//
// The line is renewed when something changes, not by a timer: an idle play list wakes the processor for nothing.
#pragma once

#include "base/last_error.h"
#include "base/timer.h"
#include "controls/drop_target.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/skin_window.h"
#include "playlist/play_order.h"

#include <cstdint>
#include <optional>

class Player;
class SongFolder;

class Playlist : public SkinWindow
{
    Q_OBJECT

public:
    /// Entries are played from the folder of songs.
    Playlist(const SongFolder &songs, Player &player);

    /// Makes the settings folder and the two list files where they are missing, and reads them.
    void Load();

    QStringList songs() const { return List1.items().toStringList(); }
    QStringList times() const { return List2.items().toStringList(); }

    /// Adds entries before a row: bare names, without folder and ending, and their play times.
    void insertEntries(int row, const QStringList &names, const QStringList &times);

    /// Adds songs of the music folder, by their file names, before a row: their bare names and how long they play.
    void addSongs(int row, const QStringList &fileNames);

    /// The commands of the play list menu. Reading leaves nothing selected; files that are not there give empty lists.
    void clearLists();
    void loadLists();
    void saveLists() const;

    /// Goes to the next song and plays it, as soon as the current handler has returned.
    void enableNextSong() { Timer3.setEnabled(true); }

    /// Adds the play times to TotalListLength, as far as they are times; the first that is none is the error.
    std::optional<ErrorRecord> ReCalcPlayTime();

    std::int32_t TotalListLength = 0; // Play time of all songs in seconds.
    bool RandomPlay = false;          // The next song is drawn at random.

    /// Is the play list in use: on the screen, or away only as long as the main window is?
    bool isOpen() const { return isVisible() || m_awayWithMain; }

    ListBox *listWithMenu() override { return &List1; }

    /// The main window has left the screen or come back to it: the play list goes with it and comes back with it.
    void followMainWindow(bool mainIsSeen);

    /// Closes the play list for good: it does not come back with the main window.
    void putAway();

Q_SIGNALS:
    /// The play list menu is asked for at a point of the screen.
    void menuRequested(const QPoint &place);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void connectHandlers();
    void connectDrops();
    void Picture1_Click();
    void List1_Click();
    void List1_DblClick();
    void List1_KeyDown(QKeyEvent *event);
    void List1_MouseDown(Qt::MouseButton button);
    void List2_Click();
    void Timer3_Timer();
    void Drops_Dropped(const QStringList &paths, const QPoint &place);

    void markGap(int gap);
    void renewMark();
    void playSelected();
    std::optional<ErrorRecord> removeSelected();
    void selectNext();
    void readListFiles();
    void renewTotal();
    void showStatus();

    const SongFolder &m_songs;
    Player &m_player;
    RandomOrder m_randomOrder;
    QString m_shownError;   // The bad play time that was reported: one box is enough while it stands.
    QString m_markedFolder; // The music folder at the time of the last marking.
    bool m_awayWithMain = false;

    Label Picture1;   // Puts the window away.
    ListBox List1;    // The songs, as bare names; a double-click or Enter plays, Delete removes.
    ListBox List2;    // The play times, item n of song n; scrolls and is selected along with the songs.
    Label Label1;     // How many songs, and how long they play in all.
    Timer Timer3;     // Once: go to the next song and play it.
    DropTarget Drops; // Songs of the music folder, or that folder itself: they come in where they are dropped.
};
