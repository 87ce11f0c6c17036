// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program.h"

#include "app/dropped_skin.h"
#include "app/splash.h"
#include "app/version.h"
#include "base/names.h"
#include "controls/frame.h"
#include "controls/msg_box.h"
#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/skin_window.h"
#include "controls/wear_skin.h"
#include "platform/drives.h"
#include "platform/shell_files.h"
#include "platform/x11_windows.h"
#include "remote/adaptors.h"
#include "settings/settings_store.h"
#include "settings/window_effects.h"

#include <QApplication>
#include <QScreen>
#include <QThread>

using namespace Qt::StringLiterals;

namespace
{
constexpr int playListOverlapTwips = 30;
constexpr int searchCornerTwips = 15;
constexpr int partingPauses = 2;
constexpr int partingPauseMs = 100;
constexpr qsizetype mostFaults = 8; // Of a skin, that a box tells.

// The first skin is worn by itself.
bool dress(const QString &wanted)
{
    if (const Skin skin = skinAtStart(wanted); skin.name != currentSkin().name)
        wearSkin(skin);
    return true;
}

void showSplash()
{
    Splash splash;
    splash.animate();
}
} // namespace

Program::Program(MediaEngine &engine, const QString &skin)
    : m_isDressed(!m_instance.isPreviousRunning() && dress(skin)), m_mp3Frm(engine, m_songMenu, m_options),
      m_toolBar(m_mp3Frm.File1, m_options), m_tagEdit(m_mp3Frm.player(), m_mp3Frm.songs()),
      m_formatMp3(m_mp3Frm.player(), m_mp3Frm.songs(), m_mp3Frm.Info, m_tagEdit),
      m_playlist(m_mp3Frm.songs(), m_mp3Frm.player()), m_songSearch(m_mp3Frm.File1, m_mp3Frm.player()),
      m_menus(this, {m_songMenu, m_mp3Frm.songs(), m_mp3Frm.player(), m_formatMp3,
                     [this](const QString &title, const QString &startFolder) {
                         return BrowseForFolder(&m_formatMp3, title, startFolder);
                     }}),
      m_remote(m_mp3Frm.player(), m_mp3Frm.songs()), m_trayIcon(this)
{
    addInterfaces(m_remote);
    connectMainWindow();
    connectOtherWindows();
    connectMenus();
    connectMediaKeys();
    if (!m_instance.isPreviousRunning()) // A second player says nothing, not even of a damaged play list.
        load();
}

void Program::connectMainWindow()
{
    connect(&m_mp3Frm, &SkinWindow::firstPainted, &m_trayIcon, &TrayIcon::AddTrayIcon);
    connect(&m_mp3Frm, &SkinWindow::firstPainted, &m_remote, &RemoteControl::start);
    connect(&m_mp3Frm, &SkinWindow::firstPainted, this, &Program::tidyUp, Qt::QueuedConnection);
    connect(&m_mp3Frm, &SkinWindow::seenChanged, &m_playlist, &Playlist::followMainWindow);
    connect(&m_mp3Frm, &Mp3Frm::songMenuRequested, &m_menus, &Menus::openSongMenu);
    connect(&m_mp3Frm, &Mp3Frm::songPicked, this, &Program::addPickedSong);
    connect(&m_mp3Frm, &Mp3Frm::songDropped, this, &Program::playAndChoose);
    connect(&m_mp3Frm, &Mp3Frm::skinDropped, this, &Program::keepAndWear);
    connect(&m_mp3Frm, &Mp3Frm::folderWanted, this, &Program::chooseFolder);
    connect(&m_mp3Frm, &Mp3Frm::hideWanted, this, &Program::hideMainWindow);
    connect(&m_mp3Frm, &Mp3Frm::songNameChanged, this, &Program::updateTray);
    connect(&m_mp3Frm, &Mp3Frm::leaving, this, &Program::leave);
    connect(&m_mp3Frm, &Mp3Frm::unloaded, this, [] { QCoreApplication::exit(); });
    connect(&m_mp3Frm.player(), &Player::songEnded, this, [this] {
        if (m_playlist.isOpen())
            m_playlist.enableNextSong();
    });
}

void Program::connectOtherWindows()
{
    connect(&m_options, &frmOptions::translucencyApplied, this, &Program::applyTranslucency);
    connect(&m_options, &frmOptions::skinPicked, this, &Program::wear,
            Qt::QueuedConnection); // Its list is closed then.
    connect(&m_toolBar, &ToolBar::folderConfirmed, &m_mp3Frm.songs(), &SongList::rebuildDisplayCopy);
    connect(&m_playlist, &Playlist::menuRequested, &m_menus, &Menus::openPlayListMenu);
    connect(&m_formatMp3, &FormatMp3::done, &m_mp3Frm, &Mp3Frm::bringBack);
    connect(&m_about, &About::done, &m_mp3Frm, &Mp3Frm::bringBack);
    connect(&m_trayIcon, &TrayIcon::Click, this, &Program::trayClicked);
    connect(&m_trayIcon, &TrayIcon::trayGone, this, &Program::showWithoutTray);
    connect(&m_remote, &RemoteControl::raiseWanted, this, &Program::comeToFront);
    connect(&m_remote, &RemoteControl::quitWanted, &m_mp3Frm.Label6, &Label::press, Qt::QueuedConnection);
    connect(&m_remote, &RemoteControl::songWanted, this, &Program::playAndChoose);
}

void Program::connectMenus()
{
    connect(&m_menus, &Menus::nameToolsWanted, this, &Program::openNameTools);
    connect(&m_menus, &Menus::optionsWanted, this, [this] { showOverMain(m_options); });
    connect(&m_menus, &Menus::playListToggled, this, &Program::togglePlayList);
    connect(&m_menus, &Menus::songSearchWanted, this, &Program::openSongSearch);
    connect(&m_menus, &Menus::aboutWanted, this, &Program::openAbout);
    connect(&m_menus, &Menus::playListCleared, &m_playlist, &Playlist::clearLists);
    connect(&m_menus, &Menus::playListLoadWanted, &m_playlist, &Playlist::loadLists);
    connect(&m_menus, &Menus::playListSaveWanted, &m_playlist, &Playlist::saveLists);
    connect(&m_menus, &Menus::randomSwitched, this, &Program::switchRandom);
}

void Program::connectMediaKeys()
{
    for (SkinWindow *window : allWindows())
        connect(window, &SkinWindow::mediaKeyPressed, this, &Program::runMediaKey);
}

std::array<SkinWindow *, 8> Program::allWindows()
{
    return {&m_options, &m_mp3Frm, &m_toolBar, &m_tagEdit, &m_formatMp3, &m_playlist, &m_about, &m_songSearch};
}

// The loads in their order. The options load themselves when the main window's load asks for the first flag.
void Program::load()
{
    if (m_options.translucencyChosen())
        applyTranslucency(true);
    m_mp3Frm.Load();
    m_toolBar.Load();
    m_playlist.Load();
}

bool Program::start(const QString &commandLine)
{
    if (m_instance.isPreviousRunning())
        return false;
    if (commandLine.isEmpty())
        showSplash();
    else
        playCommandLine(commandLine);
    m_mp3Frm.show();
    return true;
}

bool Program::startByBus()
{
    if (m_instance.isPreviousRunning())
        return false;
    if (const QString song = m_remote.startByBus(); !song.isEmpty())
        playAndChoose(song);
    else
        showSplash();
    m_mp3Frm.show();
    return true;
}

// What a player that was killed could not finish goes, where it most likely worked. Listing the songs has tidied their
// folder.
void Program::tidyUp()
{
    for (const QString &folder : {u"c:\\"_s, paths::settingsFolder})
        tidyFolder(folder);
    tidyTrash(m_mp3Frm.songs().folder());
}

// The text is one path in quotation marks; its first and last character go, whatever they are.
void Program::playCommandLine(const QString &commandLine)
{
    playWithFolder(commandLine.mid(1, std::max<qsizetype>(commandLine.size() - 2, 0)));
}

// A song from outside plays, and its folder becomes the music folder.
void Program::playWithFolder(const QString &path)
{
    m_mp3Frm.player().play(path, FileNameFromPath(path));
    m_mp3Frm.setMusicFolder(FolderFromPath(path));
}

// As playWithFolder(), and the song is the chosen one: Next, Previous and Play go on from it.
void Program::playAndChoose(const QString &path)
{
    playWithFolder(path);
    m_mp3Frm.chooseSong(FileNameFromPath(spelledAsOnDisk(path)));
}

// What the desktop would ask for by such a key. Play is on most keyboards the key that holds the song, too.
void Program::runMediaKey(int key)
{
    if (key == Qt::Key_MediaPlay || key == Qt::Key_MediaTogglePlayPause)
        m_remote.playPause();
    else if (key == Qt::Key_MediaPause)
        m_remote.pause();
    else if (key == Qt::Key_MediaStop)
        m_remote.stop();
    else if (key == Qt::Key_MediaNext)
        m_remote.next();
    else if (key == Qt::Key_MediaPrevious)
        m_remote.previous();
}

// Space on a song adds it to the play list while that is on the screen: its bare name and how long it plays.
void Program::addPickedSong(const QString &name)
{
    if (name.isEmpty() || !m_playlist.isVisible())
        return;
    m_playlist.addSongs(static_cast<int>(m_playlist.songs().size()), {name});
}

void Program::chooseFolder()
{
    if (!m_options.browseDialogChosen()) {
        showOverMain(m_toolBar);
        return;
    }
    const QString folder = BrowseForFolder(&m_mp3Frm, u"Select Mp3 Path"_s, m_mp3Frm.File1.Path());
    if (!folder.isEmpty())
        m_mp3Frm.setMusicFolder(folder);
}

void Program::applyTranslucency(bool on)
{
    for (QWidget *window : std::initializer_list<QWidget *>{&m_mp3Frm, &m_toolBar, &m_formatMp3, &m_playlist, &m_about})
        MakeTranslucent(*window, asFlag(on));
}

void Program::wear(const QString &skin)
{
    forgetComplaints();
    const auto place = findSkin(skin);
    if (!place)
        complain(skin, u"it is not there any more"_s);
    wearSkin(place ? readSkin(*place) : currentSkin()); // The options show which one it is.
    m_trayPicture = {};
    m_trayIcon.renewIcon();
}

// A skin from elsewhere: it is copied to the user's own, worn, and chosen for the next start. What of it cannot be
// shown is told at once, since somebody may be making it.
void Program::keepAndWear(const QString &path)
{
    const KeptSkin kept = keepAsking(path);
    if (kept.result != RenameResult::Done)
        return;
    wear(kept.name);
    if (const QString fault = keepChosenSkin(kept.name); !fault.isEmpty())
        MsgBox::show(fault, programName(), MsgBox::Icon::Critical);
    tellFaultsOfSkin();
}

// Those that would be seen only later are looked for, in all windows.
void Program::tellFaultsOfSkin()
{
    checkPictures();
    for (SkinWindow *window : allWindows()) {
        window->renewPicture();
        for (Frame *part : window->findChildren<Frame *>())
            part->renewPicture();
    }
    Splash().renewPicture();
    const QStringList faults = complaints();
    if (faults.isEmpty())
        return;
    QStringList lines = {u"Not all of this skin can be shown.\n"_s};
    lines += faults.mid(0, mostFaults);
    if (faults.size() > mostFaults)
        lines += u"..."_s;
    MsgBox::show(lines.join(u'\n'), programName(), MsgBox::Icon::Information);
}

// Shows a window in front of the main one, around the same middle, wholly on the screen where it fits.
void Program::showOverMain(SkinWindow &window)
{
    if (!window.isVisible()) {
        const QRect screen = m_mp3Frm.screen()->availableGeometry();
        QRect place(QPoint(), window.size());
        place.moveCenter(m_mp3Frm.geometry().center());
        place.moveLeft(
            std::clamp(place.left(), screen.left(), std::max(screen.left(), screen.right() - place.width())));
        place.moveTop(std::clamp(place.top(), screen.top(), std::max(screen.top(), screen.bottom() - place.height())));
        window.move(place.topLeft());
    }
    window.bringBack();
}

// The name tools take the place of the main window; the play list goes and comes with that.
void Program::openNameTools()
{
    MakeTranslucent(m_tagEdit, asFlag(m_options.translucencyChosen()));
    showOverMain(m_formatMp3);
    m_mp3Frm.hide();
    m_formatMp3.openOnSongs();
}

// The play list opens under the main window at the top of the screen; closing it brings the main window to the middle.
void Program::togglePlayList()
{
    if (m_playlist.isVisible()) {
        m_playlist.putAway();
        CenterWindow(m_mp3Frm);
        return;
    }
    const QRect screen = m_mp3Frm.screen()->geometry();
    m_mp3Frm.move(m_mp3Frm.x(), screen.top());
    m_playlist.move(m_mp3Frm.x(), screen.top() + m_mp3Frm.height() - fromTwips(playListOverlapTwips));
    m_playlist.show();
    m_mp3Frm.activateWindow();
}

void Program::openSongSearch()
{
    MakeTranslucent(m_songSearch, asFlag(m_options.translucencyChosen()));
    m_songSearch.move(m_mp3Frm.screen()->geometry().topLeft() + fromTwips(searchCornerTwips) * QPoint(1, 1));
    m_songSearch.bringBack();
}

void Program::openAbout()
{
    showOverMain(m_about);
    m_mp3Frm.hide();
}

// Random order goes on with the next song at once.
void Program::switchRandom(bool on)
{
    m_playlist.RandomPlay = on;
    if (on)
        m_playlist.enableNextSong();
}

// Away to the tray; where there is none the window is only minimised, so that it is never lost.
void Program::hideMainWindow()
{
    if (!m_trayIcon.isTrayThere()) {
        m_mp3Frm.showMinimized();
        return;
    }
    m_mp3Frm.hide();
    m_mp3Frm.setWindowState(Qt::WindowMinimized);
}

// The main window comes back, in front and alone. Where something is asked, the question comes to the front instead,
// and what it is about stays.
void Program::trayClicked()
{
    if (QWidget *question = QApplication::activeModalWidget()) {
        question->raise();
        question->activateWindow();
        return;
    }
    for (QWidget *window :
         std::initializer_list<QWidget *>{&m_mp3Frm, &m_formatMp3, &m_tagEdit, &m_toolBar, &m_songSearch})
        window->hide();
    m_playlist.putAway();
    m_mp3Frm.bringBack();
}

// The desktop asks for the window because the user did: it comes in front of what the user works with.
void Program::comeToFront()
{
    m_mp3Frm.bringBack();
    activateForUser(*m_mp3Frm.windowHandle());
}

// The tray has gone with the main window in it: the window is found where minimised ones are.
void Program::showWithoutTray()
{
    if (!m_mp3Frm.isVisible() && m_mp3Frm.isMinimized())
        m_mp3Frm.showMinimized();
}

void Program::updateTray(const QString &songName)
{
    m_trayIcon.UpdateTrayIcon(m_trayPicture, songName);
}

// The settings are written; the play list follows, the icon goes, and after two short pauses the program ends.
void Program::leave()
{
    m_playlist.saveLists();
    m_trayIcon.RemoveTrayIcon();
    for (int pause = 0; pause < partingPauses; ++pause) {
        QThread::msleep(partingPauseMs);
        QCoreApplication::processEvents();
    }
    QCoreApplication::exit(); // Not quit(): that would close the windows, and closing leaves its trace in the side
                              // file.
}
