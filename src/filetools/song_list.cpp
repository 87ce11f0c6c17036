// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/song_list.h"

#include "base/names.h"

SongList::SongList(QObject *parent, FileListBox &file1, ListBox &list1) : SongFolder(parent), File1(file1), List1(list1)
{
    // The copy shares its texts with File1 and cuts the ending off when a row is shown: a million songs are normal.
    List1.setShownForm([](int, const QString &item) { return withoutExtension(item); });
    connect(File1.model(), &QAbstractItemModel::modelReset, this, &SongList::changed);
    connect(File1.selectionModel(), &QItemSelectionModel::currentChanged, this, &SongList::changed);
}

void SongList::rebuildDisplayCopy()
{
    List1.setItems(File1.items());
}

void SongList::refresh()
{
    File1.Refresh();
    rebuildDisplayCopy();
}
