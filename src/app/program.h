// SPDX-License-Identifier: GPL-3.0-or-later
// The whole player: builds every window, runs their loads in the prescribed order, connects what one window wants with
// what another one does, and ends it all.
#pragma once

#include "app/about.h"
#include "app/mp3_frm.h"
#include "filetools/format_mp3.h"
#include "filetools/menus.h"
#include "platform/processes.h"
#include "playlist/playlist.h"
#include "playlist/song_search.h"
#include "remote/remote_control.h"
#include "settings/frm_options.h"
#include "settings/tool_bar.h"
#include "settings/tray_icon.h"
#include "tagedit/tag_edit.h"

#include <array>
#include <memory>

class Program : public QObject
{
    Q_OBJECT

public:
    /// Builds and loads every window; nothing is shown yet. They wear that skin, or without a name the chosen one.
    explicit Program(MediaEngine &engine, const QString &skin = {});

    /// The start: a song of the command line plays at once, else the splash runs; then the main window is shown. False
    /// when another player runs already and this one is to end, unseen.
    bool start(const QString &commandLine);

    /// The same for a player that the session bus has started: it says which song, if any.
    bool startByBus();

    Mp3Frm &mainWindow() { return m_mp3Frm; }

private:
    void connectMainWindow();
    void connectOtherWindows();
    void connectMenus();
    void connectMediaKeys();
    std::array<SkinWindow *, 8> allWindows();
    void load();
    void tidyUp();
    void playCommandLine(const QString &commandLine);
    void playWithFolder(const QString &path);
    void playAndChoose(const QString &path);

    void runMediaKey(int key);
    void addPickedSong(const QString &name);
    void chooseFolder();
    void applyTranslucency(bool on);
    void wear(const QString &skin);
    void keepAndWear(const QString &path);
    void tellFaultsOfSkin();
    void showOverMain(SkinWindow &window);
    void openNameTools();
    void togglePlayList();
    void openSongSearch();
    void openAbout();
    void switchRandom(bool on);
    void hideMainWindow();
    void trayClicked();
    void showWithoutTray();
    void updateTray(const QString &songName);
    void comeToFront();
    void leave();

    SingleInstance m_instance;
    bool m_isDressed; // Before any window is built.
    SongMenu m_songMenu;
    frmOptions m_options;
    Mp3Frm m_mp3Frm;
    ToolBar m_toolBar;
    TagEdit m_tagEdit;
    FormatMp3 m_formatMp3;
    Playlist m_playlist;
    About m_about;
    SongSearch m_songSearch;
    Menus m_menus;
    RemoteControl m_remote;
    TrayIcon m_trayIcon;
    QIcon m_trayPicture; // Null at first: the tray puts the player's icon in it.
};
