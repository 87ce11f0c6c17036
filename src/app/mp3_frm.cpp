// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/mp3_frm.h"

#include "app/display_texts.h"
#include "app/version.h"
#include "base/last_error.h"
#include "base/names.h"
#include "base/numbers.h"
#include "controls/fonts.h"
#include "controls/msg_box.h"
#include "controls/skin.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/folders.h"
#include "playlist/dropped_files.h"
#include "settings/frm_options.h"
#include "settings/settings_store.h"
#include "settings/window_effects.h"
#include "settings/window_rules.h"
#include "skins/places.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;
namespace place = places::Mp3Frm;

namespace
{
const QString songPattern = u"*.mp3;*.wav;*.wma"_s;
constexpr int tickMs = 1;
constexpr int marqueeMs = 100;
constexpr int volumePerNotch = 100; // A decibel.
} // namespace

Mp3Frm::Mp3Frm(MediaEngine &engine, PlayModes &modes, frmOptions &options)
    : SkinWindow(u"Mp3Frm"_s, programName(), Picture::Mp3FrmSkin, place::window),
      Label9(this, {u"Label9"_s, u"Hide"_s, place::Label9}, u"Hide"_s),
      Label6(this, {u"Label6"_s, u"Exit"_s, place::Label6}, u"Exit"_s),
      Label7(this, {u"Label7"_s, u"Song now playing"_s, place::Label7}, u"Welcome"_s),
      Text1(this, {u"Text1"_s, u"Time"_s, place::Text1}),
      HScroll1(this, {u"HScroll1"_s, u"Position"_s, place::HScroll1}),
      bPrev(this, {u"bPrev"_s, u"Previous song"_s, place::bPrev}), bPlay(this, {u"bPlay"_s, u"Play"_s, place::bPlay}),
      bPause(this, {u"bPause"_s, u"Pause"_s, place::bPause}), bStop(this, {u"bStop"_s, u"Stop"_s, place::bStop}),
      bNext(this, {u"bNext"_s, u"Next song"_s, place::bNext}),
      Label3(this, {u"Label3"_s, u"Previous song caption"_s, place::Label3}, u"Previous"_s),
      Label1(this, {u"Label1"_s, u"Play caption"_s, place::Label1}, u"Play"_s),
      Label10(this, {u"Label10"_s, u"Pause caption"_s, place::Label10}, u"Pause"_s),
      Label2(this, {u"Label2"_s, u"Stop caption"_s, place::Label2}, u"Stop"_s),
      Label4(this, {u"Label4"_s, u"Next song caption"_s, place::Label4}, u"Next"_s),
      Label8(this, {u"Label8"_s, u"Choose the music folder"_s, place::Label8}, u"Mp3 Folder"_s),
      ListSwitch(this, {u"ListSwitch"_s, u"Switch the list"_s, place::ListSwitch}, u"Names"_s),
      File1(this, {u"File1"_s, u"Songs"_s, place::File1}, songPattern),
      List1(this, {u"List1"_s, u"Song names"_s, place::List1}),
      VScroll1(this, {u"VScroll1"_s, u"Volume"_s, place::VScroll1}, Player::loudest, Player::quietest),
      Timer1(this, u"Timer1"_s, tickMs), Timer4(this, u"Timer4"_s, marqueeMs),
      Drops(*this, [this](const QStringList &paths) { return !meantForPlayer(paths, File1.extensions()).isNothing(); }),
      m_songs(this, File1, List1), m_player(this, engine, m_songs, modes),
      m_display(m_player, {Text1, HScroll1, VScroll1, Label7, Timer1, Timer4}), m_options(options)
{
    setUpLooks();
    connectHandlers();
    connectTransport();
    connectLists();
}

// The looks and the steps of the controls: design values, nothing read from anywhere.
void Mp3Frm::setUpLooks()
{
    for (Label *button : {&Label9, &Label6, &Label3, &Label1, &Label10, &Label2, &Label4, &Label8, &ListSwitch}) {
        button->setButton(true);
        button->setFont(fonts::font(fonts::Face::SmallFonts, 11));
    }
    Label7.setFont(fonts::font(fonts::Face::Arial, 15));
    Label7.setMarquee();
    Label7.setColour(Colour::displayText);
    Text1.setFont(fonts::font(fonts::Face::MatisseItc, 22));
    Text1.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Text1.setDisplayOnly();
    HScroll1.setRange(0, 0);
    HScroll1.setSmallChange(5);
    HScroll1.setLargeChange(10);
    HScroll1.setPlaceInWords([this] { return placeInWords(m_player.positionSeconds(), m_player.lengthSeconds()); });
    VScroll1.setSmallChange(Player::volumeStep);
    VScroll1.setLargeChange(20);
    VScroll1.setWheelStep(volumePerNotch);
    VScroll1.setAccessibleInPercent();
    bPrev.setButton(Picture::Previous, Picture::PreviousHover, Picture::PreviousPressed, u"|<"_s);
    bPlay.setButton(Picture::Play, Picture::PlayHover, Picture::PlayPressed, u">"_s);
    bPause.setButton(Picture::Pause, Picture::PauseHover, Picture::PausePressed, u"||"_s);
    bPause.setOnPicture(Picture::PauseOn);
    bStop.setButton(Picture::Stop, Picture::StopHover, Picture::StopPressed, u"[]"_s);
    bNext.setButton(Picture::Next, Picture::NextHover, Picture::NextPressed, u">|"_s);
    // A picture and the label below it are one command: the keyboard stops at the picture alone, where its ring is seen
    // best, and assistive tools read it once.
    for (const auto &[picture, label] :
         {std::pair(&bPrev, &Label3), {&bPlay, &Label1}, {&bPause, &Label10}, {&bStop, &Label2}, {&bNext, &Label4}}) {
        picture->setAccessibleName(label->Caption());
        label->setFocusPolicy(Qt::NoFocus);
        label->setUntold();
    }
    File1.setRowTip([this](int row) {
        const bool isOn = m_options.toolTipDataChosen();
        return isOn ? songTip(File1.List(row), songHeader(File1.filePath(row))) : QString();
    });
    renewMarks();
    List1.hide();
    File1.setFocus();
}

void Mp3Frm::connectHandlers()
{
    connect(this, &SkinWindow::seenChanged, this, [this](bool seen) { m_display.setSeen(seen); });
    connect(this, &SkinWindow::closeRequested, this, &Mp3Frm::Form_Unload);
    connect(&m_options, &frmOptions::toolTipDataChanged, this, &Mp3Frm::Check2_Changed);
    connect(&Label9, &Label::Click, this, &Mp3Frm::hideWanted);
    connect(&Label6, &Label::Click, this, &Mp3Frm::Label6_Click);
    connect(&HScroll1, &HScrollBar::Scroll, this, &Mp3Frm::HScroll1_Scroll);
    connect(&HScroll1, &HScrollBar::Change, this, &Mp3Frm::HScroll1_Change);
    connect(&HScroll1, &HScrollBar::sliderReleased, &Timer1, &Timer::trigger);
    connect(&bPrev, &PictureBox::Click, this, &Mp3Frm::Label3_Click);
    connect(&bPlay, &PictureBox::Click, this, &Mp3Frm::Label1_Click);
    connect(&bPause, &PictureBox::Click, this, &Mp3Frm::Label10_Click);
    connect(&bStop, &PictureBox::Click, this, &Mp3Frm::Label2_Click);
    connect(&bNext, &PictureBox::Click, this, &Mp3Frm::Label4_Click);
    connect(&Label3, &Label::Click, this, &Mp3Frm::Label3_Click);
    connect(&Label1, &Label::Click, this, &Mp3Frm::Label1_Click);
    connect(&Label10, &Label::Click, this, &Mp3Frm::Label10_Click);
    connect(&Label2, &Label::Click, this, &Mp3Frm::Label2_Click);
    connect(&Label4, &Label::Click, this, &Mp3Frm::Label4_Click);
    connect(&Label8, &Label::Click, this, &Mp3Frm::folderWanted);
    connect(&ListSwitch, &Label::Click, this, &Mp3Frm::ListSwitch_Click);
    connect(&VScroll1, &VScrollBar::Change, this, &Mp3Frm::VScroll1_Change);
    connect(&Timer1, &Timer::tick, this, &Mp3Frm::Timer1_Timer);
    connect(&Timer4, &Timer::tick, this, &Mp3Frm::Timer4_Timer);
    connect(&Drops, &DropTarget::dropped, this, &Mp3Frm::Drops_Dropped);
}

// What the window shows of the transport.
void Mp3Frm::connectTransport()
{
    connect(&m_player, &Player::songOpened, this, &Mp3Frm::Player_SongOpened);
    connect(&m_player, &Player::titleChanged, this, [this](const QString &title) { m_display.showTitle(title); });
    connect(&m_player, &Player::songRepeated, this, [this] { m_display.startTitle(); });
    connect(&m_player, &Player::advanced, this, [this] { m_songs.SongMenuOpen = false; });
    connect(&m_player, &Player::stopped, this, &Mp3Frm::Player_Stopped);
    connect(&m_player, &Player::songEnded, this, &Mp3Frm::Player_SongEnded);
    connect(&m_player, &Player::playbackFailed, this, [] { MsgBox::showError(lastError()); });
    connect(&m_player, &Player::songChanged, this, &Mp3Frm::renewWindowTitle);
    connect(&m_player, &Player::songChanged, this, &Mp3Frm::renewMarks);
    connect(&File1, &FileListBox::PathChange, this, &Mp3Frm::renewMarks);
    connect(&m_player, &Player::stateChanged, &Timer1, &Timer::trigger);
    connect(&m_player, &Player::volumeChanged, this, [this] { VScroll1.setValue(m_player.volume()); });
}

void Mp3Frm::connectLists()
{
    connect(&File1, &ListBox::Click, this, &Mp3Frm::File1_Click);
    connect(&File1, &ListBox::DblClick, this, &Mp3Frm::File1_DblClick);
    connect(&File1, &ListBox::KeyDown, this, &Mp3Frm::File1_KeyDown);
    connect(&File1, &ListBox::MouseMove, this, &Mp3Frm::File1_MouseMove);
    connect(&List1, &ListBox::Click, this, &Mp3Frm::List1_Click);
    connect(&List1, &ListBox::KeyDown, this, &Mp3Frm::List1_KeyDown);
    connect(&List1, &ListBox::MouseMove, this, &Mp3Frm::List1_MouseMove);
    for (ListBox *list : {static_cast<ListBox *>(&File1), &List1})
        connect(list, &ListBox::MouseDown, this, [this, list](Qt::MouseButton button) {
            if (button == Qt::RightButton)
                openSongMenu(*list);
        });
}

// The keys are cut to their pictures.
void Mp3Frm::skinChanged()
{
    for (PictureBox *button : {&bPrev, &bPlay, &bPause, &bStop, &bNext})
        ShapeFromPicture(*button);
}

void Mp3Frm::Load()
{
    skinChanged();
    Label7.setCaption({});
    if (settingsAreMissing())
        firstStart();
    const QString folder = readSetting(Setting::Mp3Path);
    const QString volume = readSetting(Setting::Volume);
    const bool isStoredThere = FileExists(pathIn(folder, {})); // Each folder is read once: it may be a huge one.
    if (!isStoredThere || !File1.setPath(programPath(folder)))
        File1.setPath(firstMusicFolder(File1.extensions()));
    m_songs.rebuildDisplayCopy();
    setVolumeFrom(volume);
}

// The first settings. The volume written is the position slider's value: a stored 0 asks for the engine's own loudness.
void Mp3Frm::firstStart()
{
    const QString folder = firstMusicFolder(File1.extensions());
    writeSetting(Setting::Mp3Path, folderExists(folder) ? folder : QString());
    writeSetting(Setting::Volume, QString::number(HScroll1.Value()));
    writeSetting(Setting::ShortCut, u"1"_s);
}

void Mp3Frm::setVolumeFrom(const QString &stored)
{
    const std::optional<std::int32_t> volume = wholeNumber(stored);
    const bool isInRange = volume && *volume <= Player::loudest && *volume >= Player::quietest;
    if (isInRange && *volume != 0)
        VScroll1.setValue(*volume);
    else
        VScroll1.setValue(m_player.volume());
}

void Mp3Frm::setMusicFolder(const QString &path)
{
    File1.setPath(programPath(path));
}

void Mp3Frm::chooseSong(const QString &name)
{
    File1.setListIndex(static_cast<int>(File1.items().indexOf(name)));
}

// Exit: the folder and the volume are kept, and the program ends.
void Mp3Frm::Label6_Click()
{
    writeSetting(Setting::Mp3Path, File1.Path());
    writeSetting(Setting::Volume, QString::number(VScroll1.Value()));
    Q_EMIT leaving();
}

// The thumb was dragged: the song goes on from there.
void Mp3Frm::HScroll1_Scroll()
{
    m_player.seek(HScroll1.Value());
}

// The thumb moved by a click on the groove, which does not seek: it goes back.
void Mp3Frm::HScroll1_Change()
{
    m_display.restoreSlider();
}

// Previous: the song before, from the first one the last; nothing without a choice.
void Mp3Frm::Label3_Click()
{
    m_player.previous();
}

// Play: the chosen song from its start.
void Mp3Frm::Label1_Click()
{
    m_player.playChosen();
}

// Pause, or go on. The time stands by itself, the title keeps scrolling.
void Mp3Frm::Label10_Click()
{
    m_player.pauseOrResume();
}

// Stop: silence, an idle display, and every play mode off.
void Mp3Frm::Label2_Click()
{
    m_player.stop();
}

// Next: the song after, from the last one (or without a choice) the first.
void Mp3Frm::Label4_Click()
{
    m_player.next();
}

// The volume slider moved, by whomever: the engine is as loud as it says.
void Mp3Frm::VScroll1_Change()
{
    m_player.setVolume(VScroll1.Value());
}

// A song plays: its position and length are shown, and the slider follows the loudness.
void Mp3Frm::Timer1_Timer()
{
    m_display.showTime();
}

// The title moves on by a character, and the tray learns which song it is.
void Mp3Frm::Timer4_Timer()
{
    m_display.turnTitle();
    announceSong();
}

// A song plays: the time runs.
void Mp3Frm::Player_SongOpened()
{
    m_display.startTime();
    announceSong();
}

void Mp3Frm::Player_Stopped()
{
    m_display.showIdleTime();
    m_display.clearTitle();
}

// The song has ended: an idle display, the title stands.
void Mp3Frm::Player_SongEnded()
{
    m_display.showIdleTime();
    m_display.stopTitle();
}

// Files were dropped on the window: a song plays, a folder is shown, a skin is kept and worn, whichever comes first.
void Mp3Frm::Drops_Dropped(const QStringList &paths)
{
    const ForPlayer meant = meantForPlayer(paths, File1.extensions());
    if (!meant.song.isEmpty())
        Q_EMIT songDropped(meant.song);
    else if (!meant.folder.isEmpty())
        setMusicFolder(meant.folder);
    else if (!meant.skin.isEmpty())
        Q_EMIT skinDropped(meant.skin);
}

// The option "show a song's data" changed: the list's tip is the hint, or none.
void Mp3Frm::Check2_Changed(bool on)
{
    File1.setToolTip(songListHint(on));
}

void Mp3Frm::renewWindowTitle()
{
    const QString name = withoutExtension(FileNameFromPath(m_player.playingPath()));
    setWindowTitle(name.isEmpty() ? programName() : name + u" - "_s + programName());
}

// Marks the rows of the song that plays or is paused, and lights Pause while it is paused.
void Mp3Frm::renewMarks()
{
    const QString name = m_player.playingNameIn(File1.Path());
    const RowMark mark = name.isEmpty() ? RowMark::None : m_player.isPaused() ? RowMark::Paused : RowMark::Playing;
    File1.setMark(name, mark);
    List1.setMark(name, mark);
    bPause.setOn(m_player.isPaused());
}

void Mp3Frm::announceSong()
{
    if (m_player.openedPath() == m_announcedPath)
        return;
    m_announcedPath = m_player.openedPath();
    Q_EMIT songNameChanged(withoutExtension(FileNameFromPath(m_announcedPath)));
}

// Closed by the window manager: nothing is kept but the traces in the side file, and the program ends.
void Mp3Frm::Form_Unload()
{
    writeSideSetting(Setting::Mp3Path, File1.Path());
    writeSideSetting(Setting::Volume, QString::number(HScroll1.Value()));
    Q_EMIT unloaded();
}

// The other list comes to the front: file names, or names without their ending.
void Mp3Frm::ListSwitch_Click()
{
    const bool toNames = File1.isVisibleTo(this);
    if (toNames && !List1.items().isSharedWith(File1.items()))
        m_songs.rebuildDisplayCopy(); // Another folder's names would not be found in this one.
    File1.setVisible(!toNames);
    List1.setVisible(toNames);
    ListSwitch.setCaption(toNames ? u"Files"_s : u"Names"_s);
}

// A song is chosen: the automatic advance starts from it.
void Mp3Frm::File1_Click()
{
    m_player.SongIndex = File1.ListIndex();
}

// A song is double-clicked: it plays.
void Mp3Frm::File1_DblClick()
{
    m_player.SongIndex = File1.ListIndex();
    const QString name = File1.List(File1.ListIndex());
    m_player.play(tidyPathIn(File1.Path(), name), withoutExtension(name));
}

// Enter plays the chosen song, Space offers it to the play list.
void Mp3Frm::File1_KeyDown(QKeyEvent *event)
{
    if (isEnter(*event))
        m_player.playChosen();
    else if (event->key() == Qt::Key_Space)
        Q_EMIT songPicked(File1.List(File1.ListIndex()));
    else
        return;
    event->accept();
}

// The mouse is over a song: the menu would act on it. The hint goes.
void Mp3Frm::File1_MouseMove(int row)
{
    if (m_songs.SongMenuOpen)
        return;
    m_songs.setPointedSong(File1.List(row));
    if (row >= 0)
        File1.setToolTip({});
}

// A song name is clicked: it plays as an MP3, whatever the file's real ending.
void Mp3Frm::List1_Click()
{
    m_player.open(pathIn(File1.Path(), List1.List(List1.ListIndex()) + u".mp3"_s));
}

// Enter plays the chosen name, as its click does.
void Mp3Frm::List1_KeyDown(QKeyEvent *event)
{
    if (List1.ListIndex() < 0 || !isEnter(*event))
        return;
    event->accept();
    List1_Click();
}

// The mouse is over a song name: the menu would act on its file.
void Mp3Frm::List1_MouseMove(int row)
{
    if (!m_songs.SongMenuOpen)
        m_songs.setPointedSong(List1.items().value(row));
}

ListBox *Mp3Frm::listWithMenu()
{
    return File1.isVisibleTo(this) ? &File1 : &List1;
}

// Closing this window ends the program: Escape must not.
void Mp3Frm::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        SkinWindow::keyPressEvent(event);
}

void Mp3Frm::openSongMenu(const ListBox &list)
{
    m_songs.setPointedSong(list.items().value(list.menuRow())); // The list may have been scrolled under the mouse.
    m_songs.SongMenuOpen = true;
    Q_EMIT songMenuRequested(list.menuPosition());
}
