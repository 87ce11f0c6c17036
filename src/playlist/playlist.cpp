// SPDX-License-Identifier: GPL-3.0-or-later
// Which entry is next, what the times sum up to and how the files are read are rules of their own.
#include "playlist/playlist.h"

#include "base/names.h"
#include "base/numbers.h"
#include "base/texts.h"
#include "controls/fonts.h"
#include "controls/msg_box.h"
#include "controls/skin.h"
#include "mp3info/quick_header.h"
#include "platform/files.h"
#include "playback/player.h"
#include "playlist/dropped_files.h"
#include "playlist/list_file.h"
#include "playlist/play_times.h"
#include "settings/settings_store.h"
#include "skins/places.h"

#include <QKeyEvent>
#include <QRandomGenerator>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{
namespace at = places::Playlist;
constexpr int invalidCall = 5;

double uniformNumber()
{
    return QRandomGenerator::global()->generateDouble();
}
} // namespace

Playlist::Playlist(const SongFolder &songs, Player &player)
    : SkinWindow(u"Playlist"_s, u"Play List"_s, Picture::PlaylistSkin, at::window), m_songs(songs), m_player(player),
      m_randomOrder(uniformNumber), Picture1(this, {u"Picture1"_s, u"Close play list"_s, at::Picture1}, u"Close"_s),
      List1(this, {u"List1"_s, u"Play list songs"_s, at::List1}),
      List2(this, {u"List2"_s, u"Play list times"_s, at::List2}),
      Label1(this, {u"Label1"_s, u"Play list length"_s, at::Label1}),
      Timer3(this, u"Timer3"_s, 1, Timer::Kind::OneShot),
      Drops(*this, [this](const QStringList &paths) { return isAnyForPlayList(paths, m_songs.folder()); })
{
    setWindowFlag(Qt::Tool);
    Picture1.setButton(true);
    Picture1.setFont(fonts::font(fonts::Face::Arial, 11));
    Label1.setFont(fonts::font(fonts::Face::Arial, 12));
    List2.setFocusPolicy(Qt::NoFocus);
    List2.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Label1.setAlignment(Qt::AlignCenter);
    Label1.setColour(Colour::displayText);
    showStatus();
    connectHandlers();
    connectDrops();
    renewMark();
}

void Playlist::connectHandlers()
{
    connect(&Picture1, &Label::Click, this, &Playlist::Picture1_Click);
    connect(&List1, &ListBox::Click, this, &Playlist::List1_Click);
    connect(&List1, &ListBox::DblClick, this, &Playlist::List1_DblClick);
    connect(&List1, &ListBox::KeyDown, this, &Playlist::List1_KeyDown);
    connect(&List1, &ListBox::MouseDown, this, &Playlist::List1_MouseDown);
    connect(&List2, &ListBox::Click, this, &Playlist::List2_Click);
    connect(&List2, &ListBox::DblClick, this, &Playlist::List1_DblClick);
    connect(&Timer3, &Timer::tick, this, &Playlist::Timer3_Timer);
    connect(&m_player, &Player::songChanged, this, &Playlist::renewMark);
    connect(&m_songs, &SongFolder::changed, this, [this] {
        if (m_songs.folder() != m_markedFolder)
            renewMark();
    });
    connect(this, &SkinWindow::closeRequested, this, &QWidget::hide);
    QScrollBar *songRows = List1.verticalScrollBar();
    QScrollBar *timeRows = List2.verticalScrollBar();
    connect(songRows, &QScrollBar::valueChanged, timeRows, &QScrollBar::setValue);
    connect(timeRows, &QScrollBar::valueChanged, songRows, &QScrollBar::setValue);
}

void Playlist::connectDrops()
{
    connect(&Drops, &DropTarget::hovered, this,
            [this](const QPoint &place) { markGap(List1.gapAt(List1.viewport()->mapFrom(this, place))); });
    connect(&Drops, &DropTarget::left, this, [this] { markGap(-1); });
    connect(&Drops, &DropTarget::dropped, this, &Playlist::Drops_Dropped);
}

void Playlist::Load()
{
    ensureSettingsFolder();
    createIfMissing(paths::playListFile);
    createIfMissing(paths::playTimesFile);
    readListFiles();
}

void Playlist::addSongs(int row, const QStringList &fileNames)
{
    QStringList names;
    QStringList times;
    for (const QString &name : fileNames) {
        names += withoutExtension(name);
        const QuickHeader header = songHeader(tidyPathIn(m_songs.folder(), name));
        times += FormatPlayTime(roundHalfEven(numericValue(header.length)));
    }
    insertEntries(row, names, times);
}

void Playlist::insertEntries(int row, const QStringList &names, const QStringList &times)
{
    List1.insertItems(row, names);
    List2.insertItems(std::min(row, List2.ListCount()), times); // A list file may hold fewer times than songs.
    renewTotal();
}

void Playlist::clearLists()
{
    List1.Clear();
    List2.Clear();
    renewTotal();
}

void Playlist::loadLists()
{
    ensureSettingsFolder();
    readListFiles();
}

void Playlist::saveLists() const
{
    ensureSettingsFolder();
    if (!mayReplace(paths::playListFile) || !mayReplace(paths::playTimesFile))
        return; // Both or none: a song's time is the one in its line.
    SaveListFile(paths::playListFile, songs());
    SaveListFile(paths::playTimesFile, times());
}

std::optional<ErrorRecord> Playlist::ReCalcPlayTime()
{
    const PlayTimeSum sum = addPlayTimes(times(), TotalListLength);
    TotalListLength = sum.seconds;
    return sum.error;
}

void Playlist::followMainWindow(bool mainIsSeen)
{
    if (!mainIsSeen) {
        m_awayWithMain = isOpen();
        hide();
    } else if (m_awayWithMain) {
        show();
    }
}

void Playlist::putAway()
{
    m_awayWithMain = false;
    hide();
}

void Playlist::showEvent(QShowEvent *event)
{
    m_awayWithMain = false;
    SkinWindow::showEvent(event);
    List1.setFocus();
}

void Playlist::readListFiles()
{
    List1.setItems(LoadListFile(paths::playListFile));
    List2.setItems(LoadListFile(paths::playTimesFile));
    renewTotal();
}

// Adds up the total and shows it. A text that is no time is reported once; what follows it is not counted while it
// stands.
void Playlist::renewTotal()
{
    TotalListLength = 0;
    const ErrorRecord error = ReCalcPlayTime().value_or(ErrorRecord());
    showStatus();
    if (std::exchange(m_shownError, error.description) == error.description || error.description.isEmpty())
        return;
    recordError(error);
    MsgBox::showError(error);
}

void Playlist::showStatus()
{
    const QString length = FormatPlayTime(TotalListLength);
    Label1.setCaption(List1.List(0).isEmpty()
                          ? u"There are no songs in the play list."_s
                          : u"[ %1 .::. Songs .::. %2 .::. Play Time ] "_s.arg(List1.ListCount()).arg(length));
}

// Close: the window goes, the list stays as it is.
void Playlist::Picture1_Click()
{
    hide();
}

// A song was selected: its play time is, too.
void Playlist::List1_Click()
{
    List2.setListIndex(List1.ListIndex());
}

// Play the selected song.
void Playlist::List1_DblClick()
{
    playSelected();
}

// Delete removes the selected song, Enter plays it.
void Playlist::List1_KeyDown(QKeyEvent *event)
{
    if (isEnter(*event)) {
        event->accept();
        playSelected();
    } else if (event->key() == Qt::Key_Delete) {
        event->accept();
        if (const auto error = removeSelected())
            MsgBox::showError(*error);
        else
            renewTotal();
    }
}

// The right button (or the menu key): the play list menu.
void Playlist::List1_MouseDown(Qt::MouseButton button)
{
    if (button == Qt::RightButton)
        Q_EMIT menuRequested(List1.menuPosition());
}

// A play time was selected: its song is, too.
void Playlist::List2_Click()
{
    List1.setListIndex(List2.ListIndex());
}

// The next song is wanted: go there and play it.
void Playlist::Timer3_Timer()
{
    if (List1.List(0).isEmpty())
        return;
    selectNext();
    playSelected();
}

// Songs were dropped: they come in where the pointer is.
void Playlist::Drops_Dropped(const QStringList &paths, const QPoint &place)
{
    addSongs(List1.gapAt(List1.viewport()->mapFrom(this, place)), meantForPlayList(paths, m_songs.folder()));
}

// The entries that lead to the song that plays, if it lies in the music folder.
void Playlist::renewMark()
{
    m_markedFolder = m_songs.folder();
    const QString name = m_player.playingNameIn(m_markedFolder);
    const bool isEntry = name.endsWith(u".mp3"_s, Qt::CaseInsensitive);
    const RowMark mark = m_player.isPaused() ? RowMark::Paused : RowMark::Playing;
    List1.setMark(isEntry ? withoutExtension(name) : QString(), isEntry ? mark : RowMark::None);
}

void Playlist::markGap(int gap)
{
    List1.markGap(gap);
    List2.markGap(gap);
}

void Playlist::selectNext()
{
    const int selected = List1.ListIndex();
    if (!RandomPlay)
        List1.setListIndex(nextInOrder(selected, List1.ListCount(), List1.List(selected + 1).isEmpty()));
    else if (const auto drawn = m_randomOrder.next(List1.ListCount()))
        List1.setListIndex(*drawn);
}

void Playlist::playSelected()
{
    if (List1.ListIndex() < 0)
        return;
    const QString song = List1.List(List1.ListIndex());
    m_player.play(pathIn(m_songs.folder(), song + u".mp3"_s), song);
}

// Selects the song that moved up into the place, or the one before when the last has gone.
std::optional<ErrorRecord> Playlist::removeSelected()
{
    if (List1.List(0).isEmpty())
        TotalListLength = 0; // Also when there is nothing to remove.
    const int row = List1.ListIndex();
    if (row < 0)
        return ErrorRecord{invalidCall, objectName(), u"No song is selected in the play list."_s};
    if (!List2.RemoveItem(row))
        return ErrorRecord{invalidCall, objectName(), u"The selected song has no play time."_s};
    List1.RemoveItem(row);
    List1.setListIndex(std::min(row, List1.ListCount() - 1));
    return std::nullopt;
}
