// SPDX-License-Identifier: GPL-3.0-or-later
// The play list and the search as a user meets them, with an engine without sound.
#include "controls/folder_lists.h"
#include "platform/files.h"
#include "playlist/list_file.h"
#include "playlist/playlist.h"
#include "playlist/song_search.h"
#include "settings/settings_store.h"
#include "support/core_stand.h"
#include "support/windows.h"

#include <QScrollBar>
#include <QSignalSpy>

#include <memory>
#include <set>

using namespace Qt::StringLiterals;

class PlaylistWindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_windows = std::make_unique<Windows>();
        m_engine = &m_windows->core.engine;
        MsgBox::answerFromNowOn({});
        m_playlist = &m_windows->playlist;
        m_songs = &control<ListBox>(*m_playlist, u"List1"_s);
        m_playlist->show();
    }

    void cleanup() { QCOMPARE(takeBoxes(), QStringList()); }

    void firstLoadMakesTheFilesAndSavedListsComeBack()
    {
        const auto &status = control<Label>(*m_playlist, u"Label1"_s);
        m_playlist->Load();
        for (const QString &path : {paths::playListFile, paths::playTimesFile})
            QVERIFY(loadFile(path).reading == Reading::Done);
        QVERIFY(!status.Caption().contains(u'['));
        addEntry(u"a"_s, u"3:05"_s);
        addEntry(u"\u6B4C"_s, u"12:40"_s);
        m_playlist->saveLists();
        m_songs->setListIndex(1);
        m_playlist->clearLists();
        QVERIFY(!status.Caption().contains(u'['));
        m_playlist->loadLists();
        QCOMPARE(m_playlist->songs(), (QStringList{u"a"_s, u"\u6B4C"_s}));
        QCOMPARE(m_songs->ListIndex(), -1);
        QCOMPARE(status.Caption(), u"[ 2 .::. Songs .::. 15:45 .::. Play Time ] "_s);
    }

    void listsThatCannotBothBeReadAreKept()
    {
        fill({u"a"_s});
        m_playlist->saveLists();
        const QString times = QFile::decodeName(hostPath(paths::playTimesFile));
        QVERIFY(QFile::remove(times) && QDir().mkdir(times)); // There, and not to be read.
        m_playlist->loadLists();
        fill({u"b"_s});
        m_playlist->saveLists(); // A song's time is the one in its line.
        QCOMPARE(LoadListFile(paths::playListFile), QStringList(u"a"_s));
        QVERIFY(QDir().rmdir(times));
        m_playlist->Load();
    }

    void badTimesAreToldOnce()
    {
        fill({u"a"_s, u"b"_s});
        addEntry(u"c"_s, u"1:x0"_s);
        addEntry(u"d"_s, u"1:00"_s);
        QCOMPARE(m_playlist->TotalListLength, 120);
        const QStringList shown = takeBoxes();
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown[0].startsWith(u"Error - 13|Playlist - "_s));
    }

    void deleteKeepsListsTotalAndSelectionRight()
    {
        fill({u"a"_s});
        addEntry(u"b"_s, u"2:00"_s);
        addEntry(u"c"_s, u"3:00"_s);
        m_songs->setListIndex(1);
        for (const auto &[songs, selected, seconds] : {std::tuple(u"a c"_s, 1, 240), {u"a"_s, 0, 60}, {u""_s, -1, 0}}) {
            QTest::keyClick(m_songs, Qt::Key_Delete);
            QCOMPARE(m_playlist->songs().join(u' '), songs);
            QCOMPARE(m_songs->ListIndex(), selected);
            QCOMPARE(control<ListBox>(*m_playlist, u"List2"_s).ListIndex(), selected);
            QCOMPARE(m_playlist->TotalListLength, seconds);
        }
    }

    void deleteWithNothingToDeleteTellsWhy()
    {
        fill({u"a"_s});
        QTest::keyClick(m_songs, Qt::Key_Delete);
        QCOMPARE(m_playlist->songs().size(), 1);
        SaveListFile(paths::playListFile, {u"Artist, Song"_s}); // One name, two items, one time.
        SaveListFile(paths::playTimesFile, {u"1:00"_s});
        m_playlist->loadLists();
        m_songs->setListIndex(1);
        QTest::keyClick(m_songs, Qt::Key_Delete);
        QCOMPARE(m_playlist->songs(), (QStringList{u"Artist"_s, u"Song"_s}));
        SaveListFile(paths::playListFile, {});
        m_playlist->loadLists();
        QCOMPARE(m_playlist->TotalListLength, 60);
        QTest::keyClick(m_songs, Qt::Key_Delete);
        QCOMPARE(m_playlist->TotalListLength, 0);
        const QStringList shown = takeBoxes();
        QCOMPARE(shown.filter(u"Error - 5|"_s).size(), 3);
        QVERIFY(shown[0] != shown[1]);
    }

    void theEntriesOfTheSongThatPlaysAreMarked()
    {
        fill({u"Glove"_s, u"Zebra"_s, u"Glove"_s});
        CoreStand &core = m_windows->core;
        core.player.play(core.folder.path(u"Glove.mp3"_s), {});
        QCOMPARE(marksOf(*m_songs), u"Playing - Playing"_s);
        core.folder.makeFile(u"Zebra.wav"_s); // An entry is an mp3.
        core.player.play(core.folder.path(u"Zebra.wav"_s), {});
        QCOMPARE(marksOf(*m_songs), u"- - -"_s);
        core.player.play(core.folder.path(u"Zebra.mp3"_s), {});
        core.player.pauseOrResume();
        QCOMPARE(marksOf(*m_songs), u"- Paused -"_s);
        const TestFolder other;
        core.songs.path = other.path(); // The entries are others now.
        Q_EMIT core.songs.changed();
        QCOMPARE(marksOf(*m_songs), u"- - -"_s);
        core.takeCalls();
    }

    void threeSongsPlayThroughInOrder()
    {
        fill({u"Glove"_s, u"Love Song"_s, u"Zebra"_s});
        connect(&m_windows->core.player, &Player::songEnded, m_playlist, &Playlist::enableNextSong);
        m_songs->setListIndex(0);
        QTest::keyClick(m_songs, Qt::Key_Return);
        QCOMPARE(title(), u"Glove"_s);
        QCOMPARE(m_windows->core.takeCalls(), u"FileName Glove.mp3, Play"_s);
        for (const QString &name : {u"Love Song"_s, u"Zebra"_s, u"Glove"_s}) {
            m_engine->finishSong();
            QCOMPARE(m_windows->core.takeCalls(), u""_s); // Never inside the engine's own report.
            QTRY_COMPARE(m_engine->fileName(), m_windows->core.folder.path(name + u".mp3"_s));
            QCOMPARE(m_windows->core.takeCalls(), u"FileName "_s + name + u".mp3, Play"_s);
            QCOMPARE(title(), name);
            QCOMPARE(m_songs->List(m_songs->ListIndex()), name);
        }
    }

    void twentySongsPlayAtRandom()
    {
        fill(QStringList(20, u"Glove"_s));
        m_playlist->RandomPlay = true;
        std::set<int> chosen;
        for (int i = 0; i < 100; ++i) {
            nextSong();
            chosen.insert(m_songs->ListIndex());
        }
        QVERIFY(chosen.size() > 15);
    }

    void aListTooShortForRandomOrderNeverFreezes()
    {
        m_playlist->RandomPlay = true;
        m_playlist->enableNextSong(); // Nothing in the list.
        QTest::qWait(0);
        fill({u"Glove"_s, u"Glove"_s});
        m_playlist->enableNextSong();
        QTest::qWait(0);
        QCOMPARE(m_engine->fileName(), QString());
        m_songs->setListIndex(1);
        nextSong();
        QCOMPARE(m_songs->ListIndex(), 1);
    }

    void timesScrollAndAreSelectedAlong()
    {
        fill(QStringList(100, u"Glove"_s));
        auto &times = control<ListBox>(*m_playlist, u"List2"_s);
        m_songs->setListIndex(80);
        QCOMPARE(times.ListIndex(), 80);
        m_songs->verticalScrollBar()->setValue(70);
        QCOMPARE(times.verticalScrollBar()->value(), 70);
        times.verticalScrollBar()->setValue(72);
        QCOMPARE(m_songs->verticalScrollBar()->value(), 72);
        QTest::mouseClick(times.viewport(), Qt::LeftButton, {}, times.viewport()->rect().center());
        QCOMPARE(m_songs->ListIndex(), times.ListIndex());
        doubleClickRow(times, times.ListIndex());
        QCOMPARE(m_windows->core.takeCalls(), u"FileName Glove.mp3, Play"_s);
        const QSignalSpy asked(m_playlist, &Playlist::menuRequested);
        QTest::mouseClick(m_songs->viewport(), Qt::RightButton, {}, QPoint(5, 5));
        QCOMPARE(asked.size(), 1);
    }

    void theListGoesAndComesWithTheMainWindow()
    {
        m_playlist->followMainWindow(false);
        QVERIFY(!m_playlist->isVisible() && m_playlist->isOpen());
        m_playlist->followMainWindow(false); // Minimised first, hidden then.
        m_playlist->followMainWindow(true);
        QVERIFY(m_playlist->isVisible());
        m_playlist->close();
        QVERIFY(!m_playlist->isOpen());
        m_playlist->followMainWindow(false);
        m_playlist->followMainWindow(true);
        QVERIFY(!m_playlist->isVisible());
    }

    void searchFollowsTheFolder()
    {
        const auto &results = control<ListBox>(m_windows->search, u"List1"_s);
        auto &text = control<TextBox>(m_windows->search, u"Text1"_s);
        text.setText(u"new"_s);
        QCOMPARE(results.ListCount(), 0);
        m_windows->core.folder.makeFile(u"New Song.mp3"_s);
        m_windows->File1.Refresh();
        text.setText(u"new "_s);
        QCOMPARE(results.List(0), u"NEW Song.mp3"_s);
        text.setText(u""_s);
        QCOMPARE(results.ListCount(), m_windows->File1.ListCount());
        QCOMPARE(results.List(1), m_windows->File1.List(1));
        text.setText(u"new"_s);
        m_windows->File1.setPath(m_windows->core.folder.path() + u'\\');
        QCOMPARE(text.Text(), QString());
        QCOMPARE(results.ListCount(), 0);
    }

    void eachResultPlaysTheFileItStandsFor()
    {
        for (const QString &name : {u"LOVE.mp3"_s, u"love.mp3"_s})
            m_windows->core.folder.makeFile(name);
        m_windows->File1.Refresh();
        auto &results = control<ListBox>(m_windows->search, u"List1"_s);
        m_windows->search.show();
        control<TextBox>(m_windows->search, u"Text1"_s).setText(u"love.mp3"_s);
        for (const auto &[row, name] : {std::pair(2, u"LOVE.mp3"_s), {3, u"love.mp3"_s}}) {
            clickRow(results, row);
            doubleClickRow(results, row);
            QCOMPARE(title(), u"LOVE.MP3"_s);
            QCOMPARE(m_windows->core.takeCalls(), u"FileName "_s + name + u", Play"_s);
        }
    }

    void searchIsUsedByMouseAndKeyboard()
    {
        SongSearch &search = m_windows->search;
        search.show();
        auto &text = control<TextBox>(search, u"Text1"_s);
        auto &results = control<ListBox>(search, u"List1"_s);
        QTRY_VERIFY(text.hasFocus());
        QTest::keyClicks(&text, u"love"_s);
        QTest::keyClick(&text, Qt::Key_Enter);
        QCOMPARE(title(), u"Dove LOVE.mp3"_s);
        QTest::keyClick(&text, Qt::Key_Down);
        QVERIFY(results.hasFocus());
        QTest::keyClick(&results, Qt::Key_Down);
        QTest::keyClick(&results, Qt::Key_Return);
        QCOMPARE(title(), u"GLOVE.mp3"_s);
        QTest::keyClick(&results, Qt::Key_Up);
        QVERIFY(results.hasFocus());
        QTest::keyClick(&results, Qt::Key_Up);
        QVERIFY(text.hasFocus());
        clickRow(results, 2);
        doubleClickRow(results, 2);
        QCOMPARE(m_engine->fileName(), m_windows->core.folder.path(u"Love Song.mp3"_s));
        QTest::keyClick(&text, Qt::Key_Down); // Back to it.
        QCOMPARE(results.ListIndex(), 2);
        QTest::keyClick(&text, Qt::Key_Escape);
        QVERIFY(!search.isVisible());
        search.show();
        QTest::keyClicks(&text, u"ze"_s); // In place of the last search.
        QCOMPARE(results.ListCount(), 1);
        QCOMPARE(results.List(0), u"ZEbra.mp3"_s);
        m_windows->core.takeCalls();
        text.setText(u"nowhere"_s);
        QTest::keyClick(&text, Qt::Key_Return);
        QCOMPARE(m_windows->core.takeCalls(), u""_s);
    }

private:
    struct Windows {
        Windows() { File1.setPath(core.folder.path()); }

        CoreStand core{{u"Dove Love.mp3"_s, u"Glove.mp3"_s, u"Love Song.mp3"_s, u"Zebra.mp3"_s}};
        FileListBox File1{nullptr, {u"File1"_s, u"Songs"_s, {}}, u"*.mp3"_s};
        Playlist playlist{core.songs, core.player};
        SongSearch search{File1, core.player};
    };

    QString title() const { return m_windows->core.playedTitle; }

    void addEntry(const QString &name, const QString &time)
    {
        m_playlist->insertEntries(m_songs->ListCount(), {name}, {time});
    }

    void fill(const QStringList &names)
    {
        for (const QString &name : names)
            addEntry(name, u"1:00"_s);
    }

    void nextSong()
    {
        m_windows->core.takeCalls();
        m_playlist->enableNextSong();
        QString calls;
        QTRY_COMPARE((calls += m_windows->core.takeCalls()), u"FileName Glove.mp3, Play"_s);
    }

    std::unique_ptr<Windows> m_windows;
    FakeEngine *m_engine = nullptr;
    Playlist *m_playlist = nullptr;
    ListBox *m_songs = nullptr;
};

QTEST_MAIN(PlaylistWindowsTest)
#include "tst_playlist_windows.moc"
