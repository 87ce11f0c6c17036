// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/menus.h"

#include "base/names.h"
#include "controls/msg_box.h"
#include "filetools/format_mp3.h"
#include "filetools/shell_windows.h"
#include "filetools/song_list.h"
#include "platform/drives.h"
#include "platform/shell_files.h"
#include "playback/player.h"

#include <QContextMenuEvent>

using namespace Qt::StringLiterals;

namespace
{
enum Mp3NameMenuItem { UseTagItem };
enum TagEditMenuItem { MoveItem, RefreshFilesItem };

struct MoveWindows : ShellWindows {
    void showFailure(const QString &text) override { MsgBox::show(u"Error Moving"_s + u"\n\n"_s + text, u"Sorry,"_s); }
};
} // namespace

Menus::Menus(QObject *parent, MenuParts parts)
    : QObject(parent), mnuMp3NameItem(this, u"mnuMp3NameItem"_s, {u"Use Tag"_s}),
      mnuPlayListItems(this, u"mnuPlayListItems"_s,
                       {u"Clear"_s, u"Load"_s, u"Save"_s, u"-"_s, u"Random"_s, u"Sort List"_s}),
      mnuTagEditItems(this, u"mnuTagEditItems"_s, {u"Move"_s, u"Refresh"_s}), m_parts(std::move(parts))
{
    mnuPlayListItems.setCheckable({RandomItem, SortListItem});
    connectHandlers();
}

void Menus::connectHandlers()
{
    MenuItems &songItems = m_parts.songMenu.mnuSongItem;
    connect(&songItems, &MenuItems::Click, this, &Menus::mnuSongItem_Click);
    connect(&songItems, &MenuItems::closed, this, [this] { m_parts.songs.SongMenuOpen = false; });
    connect(&mnuMp3NameItem, &MenuItems::Click, this, &Menus::mnuMp3NameItem_Click);
    connect(&mnuPlayListItems, &MenuItems::Click, this, &Menus::mnuPlayListItems_Click);
    connect(&mnuTagEditItems, &MenuItems::Click, this, &Menus::mnuTagEditItems_Click);
    connect(&mnuTagEditItems, &MenuItems::closed, this, [this] { m_parts.formatMp3.MoveMenuOpen = false; });
    connect(&m_parts.formatMp3.File1, &ListBox::MouseDown, this, &Menus::File1_MouseDown);
    connect(&m_parts.formatMp3.Text1, &TextBox::MouseDown, this, &Menus::Text1_MouseDown);
    connect(&m_parts.formatMp3.Text1, &TextBox::MenuKeyDown, this, &Menus::Text1_MenuKeyDown);
}

// A command over the songs.
void Menus::mnuSongItem_Click(int index)
{
    switch (index) {
    case NameToolsItem:
        Q_EMIT nameToolsWanted();
        break;
    case RefreshItem:
        m_parts.songs.refresh();
        break;
    case DeleteSongItem:
        deleteSong();
        break;
    case OptionsItem:
        Q_EMIT optionsWanted();
        break;
    case AutoPlayItem:
        switchAutoPlay();
        break;
    case RepeatSongItem:
        switchRepeatSong();
        break;
    case RepeatAllItem:
        m_parts.songMenu.toggle(RepeatAllItem);
        break;
    case PlayListItem:
        Q_EMIT playListToggled();
        break;
    case SongSearchItem:
        Q_EMIT songSearchWanted();
        break;
    case AboutItem:
        Q_EMIT aboutWanted();
        break;
    default: // "Mp3 Info" has no command.
        break;
    }
    m_parts.songs.SongMenuOpen = false;
}

// A command over the new name.
void Menus::mnuMp3NameItem_Click(int index)
{
    if (index == UseTagItem)
        m_parts.formatMp3.useTag();
}

// A command over the play list.
void Menus::mnuPlayListItems_Click(int index)
{
    switch (index) {
    case ClearListItem:
        Q_EMIT playListCleared();
        break;
    case LoadListItem:
        Q_EMIT playListLoadWanted();
        break;
    case SaveListItem:
        Q_EMIT playListSaveWanted();
        break;
    case RandomItem:
        switchRandom();
        break;
    case SortListItem:
        switchSorting();
        break;
    default:
        break;
    }
}

// A command over the name formatter's files.
void Menus::mnuTagEditItems_Click(int index)
{
    if (index == MoveItem)
        movePointedFile();
    else if (index == RefreshFilesItem)
        m_parts.formatMp3.refresh();
    m_parts.formatMp3.MoveMenuOpen = false;
}

// A button went down over the files: the menu says which one it would move, and the right button opens it.
void Menus::File1_MouseDown(Qt::MouseButton button)
{
    mnuTagEditItems.setCaption(MoveItem, u"Move... "_s + m_parts.formatMp3.pointedFile());
    mnuTagEditItems.setEnabled(MoveItem, !m_parts.formatMp3.pointedFile().isEmpty());
    m_parts.formatMp3.MoveMenuOpen = button == Qt::RightButton;
    if (button == Qt::RightButton)
        mnuTagEditItems.popUp(m_parts.formatMp3.File1.menuPosition());
}

// The middle button over the new name opens its menu.
void Menus::Text1_MouseDown(Qt::MouseButton button)
{
    if (button == Qt::MiddleButton)
        mnuMp3NameItem.popUp(QCursor::pos());
}

// The keyboard's menu key in the new name does so too.
void Menus::Text1_MenuKeyDown(QContextMenuEvent *event)
{
    event->accept();
    mnuMp3NameItem.popUp(event->globalPos());
}

void Menus::deleteSong()
{
    ShellWindows prompts;
    ShellDeleteFile(pathIn(m_parts.songs.folder(), m_parts.songs.pointedSong()), prompts);
    m_parts.songs.File1.Refresh();
}

// Checking a mode takes the marks off the others and leaves their timers as they are: what they do depends on the
// marks.
void Menus::switchAutoPlay()
{
    m_parts.player.setAdvanceDue(m_parts.songMenu.toggle(AutoPlayItem));
}

void Menus::switchRepeatSong()
{
    const bool on = m_parts.songMenu.toggle(RepeatSongItem);
    m_parts.player.setRepeatDue(on);
    if (on)
        m_parts.player.RepeatSongName = m_parts.songs.pointedSong();
    else
        m_parts.player.stopSound();
}

void Menus::switchRandom()
{
    const bool on = !mnuPlayListItems.Checked(RandomItem);
    mnuPlayListItems.setChecked(RandomItem, on);
    Q_EMIT randomSwitched(on);
}

void Menus::switchSorting()
{
    mnuPlayListItems.setChecked(SortListItem, !mnuPlayListItems.Checked(SortListItem));
}

// The name is taken down first: windows that ask let the mouse point at other files.
void Menus::movePointedFile()
{
    const QString name = m_parts.formatMp3.pointedFile();
    const QString folder =
        name.isEmpty() ? QString() : m_parts.pickFolder(u"Select Folder"_s, m_parts.formatMp3.File1.Path());
    if (folder.isEmpty())
        return;
    const QString question = u"Move "_s + name + u" To "_s + displayPath(folder) + u'?';
    if (MsgBox::show(question, u"Mp3 Mover"_s, MsgBox::Icon::Plain, MsgBox::Buttons::YesNo) == MsgBox::Answer::Yes)
        move(name, folder);
}

void Menus::move(const QString &name, const QString &toFolder)
{
    const FileListBox &files = m_parts.formatMp3.File1;
    MoveWindows prompts;
    moveFile(pathIn(files.Path(), name), pathIn(toFolder, name), prompts);
    m_parts.formatMp3.refresh();
}
