// SPDX-License-Identifier: GPL-3.0-or-later
// The name formatter with its tag editor, on a song list of a test's own.
#pragma once

#include "filetools/format_mp3.h"
#include "filetools/song_list.h"
#include "mp3info/mp3_info.h"
#include "support/core_stand.h"
#include "support/windows.h"
#include "tagedit/tag_edit.h"

struct NameTools : CoreStand {
    explicit NameTools(const QStringList &names = {}) : CoreStand(names)
    {
        File1.setPath(folder.path());
        songList.rebuildDisplayCopy();
        MsgBox::answerFromNowOn({});
        MsgBox::takeShown();
    }

    /// Opens the name formatter on one of the songs.
    void openOn(const QString &song)
    {
        File1.setListIndex(static_cast<int>(File1.items().indexOf(song)));
        formatMp3.openOnSongs();
    }

    FileListBox File1{nullptr, {QStringLiteral("File1"), QStringLiteral("Songs"), {}}, QStringLiteral("*.mp3;*.wav")};
    ListBox List1{nullptr, {QStringLiteral("List1"), QStringLiteral("Song names"), {}}};
    SongList songList{nullptr, File1, List1};
    Mp3Info info;
    TagEdit tagEdit{player, songList};
    FormatMp3 formatMp3{player, songList, info, tagEdit};
};
