// SPDX-License-Identifier: GPL-3.0-or-later
// The songs of the music folder: File1, the list itself, and List1, its display copy without the endings. The copy
// stays as it was when the folder changes, until somebody rebuilds it. Here is also which song the mouse points at and
// whether the song menu is up.
#pragma once

#include "controls/folder_lists.h"
#include "playback/song_folder.h"

class SongList : public SongFolder
{
    Q_OBJECT

public:
    SongList(QObject *parent, FileListBox &file1, ListBox &list1);

    FileListBox &File1;
    ListBox &List1;

    QString folder() const override { return File1.Path(); }
    int count() const override { return File1.ListCount(); }
    QString name(int row) const override { return File1.List(row); }
    int chosenRow() const override { return File1.ListIndex(); }
    void choose(int row) override { File1.setListIndex(row); }

    /// Fills List1 from File1 as it stands: item i is File1's item i without its last four characters.
    void rebuildDisplayCopy();

    /// Reads the folder again, for both lists.
    void refresh();

    /// The name under the mouse, with its ending; the menu's commands act on it. "" beside the songs.
    QString pointedSong() const { return m_pointedSong; }
    void setPointedSong(const QString &name) { m_pointedSong = name; }

    /// True while the song menu is up: the pointed song stays the one it was opened on.
    bool SongMenuOpen = false;

private:
    QString m_pointedSong;
};
