// The main window, the tag editor and the name formatter on a folder of a test's own, with an engine without sound.
#pragma once

#include "app/mp3_frm.h"
#include "controls/msg_box.h"
#include "filetools/format_mp3.h"
#include "tagedit/tag_edit.h"
#include "tests/support/fake_engine.h"
#include "tests/support/test_files.h"

struct NameTools {
    /// Files of a folder, each of them a song; the main window shows them.
    explicit NameTools(const QStringList &songs)
    {
        for (const QString &song : songs)
            folder.copySample(QStringLiteral("id3v1-nul.mp3"), song);
        main.setMusicFolder(folder.path());
        main.songs().rebuildDisplayCopy();
        MsgBox::answerFromNowOn({});
        MsgBox::takeShown();
    }

    /// Opens the name formatter on one of the songs.
    void openOn(const QString &song)
    {
        main.File1.setListIndex(static_cast<int>(main.File1.items().indexOf(song)));
        formatMp3.openOnSongs();
    }

    /// The centre of a row of the name formatter's files.
    QPoint rowCentre(int row) const
    {
        return formatMp3.File1.visualRect(formatMp3.File1.model()->index(row, 0)).center();
    }

    TestFolder folder;
    FakeEngine engine;
    PlayModes modes{&engine};
    Mp3Frm main{engine, modes};
    TagEdit tagEdit{main.player(), main.songs()};
    FormatMp3 formatMp3{main.player(), main.songs(), main.Info, main.VScroll1, tagEdit};
};
