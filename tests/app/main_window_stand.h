// SPDX-License-Identifier: GPL-3.0-or-later
// The main window on a folder of a test's own, with an engine without sound.
#pragma once

#include "app/mp3_frm.h"
#include "filetools/song_menu.h"
#include "settings/frm_options.h"
#include "support/fake_engine.h"
#include "support/test_files.h"
#include "support/windows.h"

struct MainWindowStand {
    /// The window shows copies of one real song with a tag by these names. Questions are answered with No.
    explicit MainWindowStand(const QStringList &songs = {})
    {
        for (const QString &song : songs)
            folder.copySample(QStringLiteral("id3v1-nul.mp3"), song);
        window.setMusicFolder(folder.path());
        window.songs().rebuildDisplayCopy();
        takeCalls();
        MsgBox::answerFromNowOn({});
        MsgBox::takeShown();
    }

    /// What the engine was told since the last question, the music folder left out: "FileName a.mp3, Play".
    QString takeCalls() { return engine.takeCalls().join(QStringLiteral(", ")).remove(folder.path({})); }

    TestFolder folder;
    FakeEngine engine;
    SongMenu songMenu;
    frmOptions options;
    Mp3Frm window{engine, songMenu, options};
};
