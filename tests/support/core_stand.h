// SPDX-License-Identifier: GPL-3.0-or-later
// The transport without a window: on a folder of a test's own, with an engine without sound, songs and play modes that
// a test sets.
#pragma once

#include "playback/player.h"
#include "support/fake_engine.h"
#include "support/test_files.h"

class FakeSongs : public SongFolder
{
public:
    QString path;
    QStringList names;
    int row = -1;

    QString folder() const override { return path; }
    int count() const override { return static_cast<int>(names.size()); }
    QString name(int of) const override { return names.value(of); }
    int chosenRow() const override { return row; }
    void choose(int chosen) override
    {
        row = chosen < count() ? chosen : -1;
        Q_EMIT changed();
    }
};

struct FakeModes : PlayModes {
    bool repeats = false;
    bool advances = false;

    bool isRepeating() const override { return repeats; }
    bool isAdvancing() const override { return advances; }
    void clear() override { repeats = advances = false; }
};

struct CoreStand {
    /// Plays from a folder with copies of one real song with a tag by these names; none is chosen.
    explicit CoreStand(const QStringList &names = {})
    {
        for (const QString &name : names)
            folder.copySample(QStringLiteral("id3v1-nul.mp3"), name);
        songs.path = folder.path();
        songs.names = names;
        QObject::connect(&player, &Player::titleChanged, &songs, [this](const QString &to) { playedTitle = to; });
    }

    /// What the engine was told since the last question, the folder left out: "FileName a.mp3, Play".
    QString takeCalls() { return engine.takeCalls().join(QStringLiteral(", ")).remove(folder.path({})); }

    /// Is a one-shot timer of the transport about to fire?
    bool isDue(const QString &timer) const { return player.findChild<Timer *>(timer)->Enabled(); }

    TestFolder folder;
    FakeEngine engine;
    FakeSongs songs;
    FakeModes modes;
    Player player{nullptr, engine, songs, modes};
    QString playedTitle; // What plays is called so.
};
