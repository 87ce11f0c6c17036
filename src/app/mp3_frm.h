// SPDX-License-Identifier: GPL-3.0-or-later
// The player itself: the songs of the music folder, the transport's keys, the display, the two sliders. What plays is
// decided by the transport (playback/); this window drives it, shows what it does, keeps the music folder and is the
// one through which the program is left.
#pragma once

#include "app/song_display.h"
#include "controls/drop_target.h"
#include "controls/folder_lists.h"
#include "controls/picture_box.h"
#include "controls/skin_window.h"
#include "filetools/song_list.h"
#include "mp3info/mp3_info.h"
#include "playback/player.h"

class frmOptions;

class Mp3Frm : public SkinWindow
{
    Q_OBJECT

public:
    /// The options say whether pointing at a song shows its data.
    Mp3Frm(MediaEngine &engine, PlayModes &modes, frmOptions &options);

    /// Reads the settings (writing the first ones at a first start), sets the music folder, fills the lists, sets the
    /// volume.
    void Load();

    /// Shows another music folder in File1; List1 stays as it is. A folder that does not exist changes nothing.
    void setMusicFolder(const QString &path);

    /// Chooses the song of that file name; none where the music folder has no such file.
    void chooseSong(const QString &name);

    ListBox *listWithMenu() override;

    Player &player() { return m_player; }
    SongList &songs() { return m_songs; }

    Label Label9;        // Hide the window to the tray.
    Label Label6;        // Leave the program, keeping folder, volume and play list.
    Label Label7;        // Title of the song now playing, four leading blanks; Timer4 rotates it.
    TextBox Text1;       // Time text: position, a slash, length.
    HScrollBar HScroll1; // Position in the song; dragging the thumb seeks.
    PictureBox bPrev;    // Previous song.
    PictureBox bPlay;    // Play.
    PictureBox bPause;   // Pause, or go on.
    PictureBox bStop;    // Stop.
    PictureBox bNext;    // Next song.
    Label Label3;        // Previous song.
    Label Label1;        // Play.
    Label Label10;       // Pause, or go on.
    Label Label2;        // Stop.
    Label Label4;        // Next song.
    Label Label8;        // Choose the music folder.
    Label ListSwitch;    // Shows List1 in the place of File1, and back.
    FileListBox File1;   // The songs of the music folder; a double click plays.
    ListBox List1;       // The songs without their ending, as they were when last filled; a click plays.
    VScrollBar VScroll1; // Volume: 0 at the top, -2290 at the bottom, hundredths of a decibel.
    Mp3Info Info;        // Tag and header data of a song, for whoever asks.
    Timer Timer1;        // Time text, position slider, volume slider; on while a song plays.
    Timer Timer4;        // Title and tray tip; on while a song plays.
    DropTarget Drops;    // A song is to play, a folder becomes the music folder, a skin is worn.

Q_SIGNALS:
    /// Space on a song: whoever keeps the play list may add it.
    void songPicked(const QString &name);

    /// A song was dropped on the window: it is to play, and its folder to be the music folder.
    void songDropped(const QString &path);

    /// A skin was dropped on the window, as a folder or an archive: it is to be kept and worn.
    void skinDropped(const QString &path);

    /// A right click or the menu key on a song: the song menu is wanted here.
    void songMenuRequested(const QPoint &place);

    /// Label8 was clicked: somebody is to ask for a music folder.
    void folderWanted();

    /// Label9 was clicked: away to the tray.
    void hideWanted();

    /// Label6 was clicked, the settings are written: save what else is to be kept and end the program.
    void leaving();

    /// The window was closed in any other way: end the program, the settings stay as they are.
    void unloaded();

    /// The tray's tip: the song's file name without its ending.
    void songNameChanged(const QString &name);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void skinChanged() override;

private:
    void setUpLooks();
    void connectHandlers();
    void connectTransport();
    void connectLists();
    void firstStart();
    void setVolumeFrom(const QString &stored);
    void announceSong();
    void renewWindowTitle();
    void renewMarks();

    void Label6_Click();
    void HScroll1_Scroll();
    void HScroll1_Change();
    void Label3_Click();
    void Label1_Click();
    void Label10_Click();
    void Label2_Click();
    void Label4_Click();
    void ListSwitch_Click();
    void File1_Click();
    void File1_DblClick();
    void File1_KeyDown(QKeyEvent *event);
    void File1_MouseMove(int row);
    void List1_Click();
    void List1_KeyDown(QKeyEvent *event);
    void List1_MouseMove(int row);
    void VScroll1_Change();
    void Timer1_Timer();
    void Timer4_Timer();
    void Player_SongOpened();
    void Player_Stopped();
    void Player_SongEnded();
    void Drops_Dropped(const QStringList &paths);
    void Check2_Changed(bool on);
    void Form_Unload();
    void openSongMenu(const ListBox &list);

    SongList m_songs;
    Player m_player;
    SongDisplay m_display;
    frmOptions &m_options;
    QString m_announcedPath; // The song that the tray knows of.
};
