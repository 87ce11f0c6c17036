// The play list and the search as a user meets them, with an engine without sound.
#include "controls/msg_box.h"
#include "platform/saved_file.h"
#include "playlist/list_file.h"
#include "playlist/playlist.h"
#include "playlist/song_search.h"
#include "settings/setting_paths.h"
#include "tests/playlist/player_stand.h"
#include "tests/support/test_files.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <set>

using namespace Qt::StringLiterals;

class TestPlaylistWindows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        MsgBox::answerFromNowOn({});
        m_playlist.reset();
        m_stand.reset();
        m_folder = std::make_unique<TestFolder>();
        for (const QString &name : {u"Dove Love.mp3"_s, u"Glove.mp3"_s, u"Love Song.mp3"_s, u"Zebra.mp3"_s})
            m_folder->makeFile(name);
        m_stand = std::make_unique<PlayerStand>(m_folder->path());
        m_playlist = std::make_unique<Playlist>(m_stand->File1, m_stand->player);
        m_songs = &control<ListBox>(*m_playlist, u"List1"_s);
        m_status = &control<Label>(*m_playlist, u"Label1"_s);
        m_playlist->show();
    }

    void cleanup() { QVERIFY(MsgBox::takeShown().isEmpty()); }
    void firstLoadMakesTheFilesAndSavedListsComeBack()
    {
        m_playlist->Load();
        QVERIFY(loadFile(paths::playListFile) && loadFile(paths::playTimesFile));
        QVERIFY(!m_status->Caption().contains(u'['));
        m_playlist->addSong(u"a"_s, u"3:05"_s);
        m_playlist->addSong(u"\u6B4C"_s, u"12:40"_s);
        m_playlist->saveLists();
        m_songs->setListIndex(1);
        m_playlist->clearLists();
        QVERIFY(!m_status->Caption().contains(u'['));
        m_playlist->loadLists();
        QCOMPARE(m_playlist->songs(), (QStringList{u"a"_s, u"\u6B4C"_s}));
        QCOMPARE(m_songs->ListIndex(), -1);
        QCOMPARE(m_status->Caption(), u"[ 2 .::. Songs .::. 15:45 .::. Play Time ] "_s);
    }

    void badTimesAreToldOnce()
    {
        fill({u"a"_s, u"b"_s});
        m_playlist->addSong(u"c"_s, u"1:x0"_s);
        m_playlist->addSong(u"d"_s, u"1:00"_s);
        QCOMPARE(m_playlist->TotalListLength, 120);
        const auto shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown[0].title, u"Error - 13"_s);
        QVERIFY(shown[0].text.startsWith(u"Playlist - "_s));
    }

    void deleteKeepsListsTotalAndSelectionRight()
    {
        m_playlist->addSong(u"a"_s, u"1:00"_s);
        m_playlist->addSong(u"b"_s, u"2:00"_s);
        m_playlist->addSong(u"c"_s, u"3:00"_s);
        m_songs->setListIndex(1);
        QTest::keyClick(m_songs, Qt::Key_Delete);
        QCOMPARE(m_playlist->songs(), (QStringList{u"a"_s, u"c"_s}));
        QCOMPARE(m_playlist->times(), (QStringList{u"1:00"_s, u"3:00"_s}));
        QCOMPARE(m_songs->ListIndex(), 1);
        QCOMPARE(m_playlist->TotalListLength, 240);
        QTest::keyClick(m_songs, Qt::Key_Delete);
        QCOMPARE(m_songs->ListIndex(), 0);
        QCOMPARE(control<ListBox>(*m_playlist, u"List2"_s).ListIndex(), 0);
        QCOMPARE(m_playlist->TotalListLength, 60);
        QTest::keyClick(m_songs, Qt::Key_Delete);
        QCOMPARE(m_songs->ListIndex(), -1);
        QCOMPARE(m_playlist->TotalListLength, 0);
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
        const auto shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 2);
        QVERIFY(shown[0].title == u"Error - 5"_s && shown[0].text != shown[1].text);
    }

    void threeSongsPlayThroughInOrder()
    {
        fill({u"Glove"_s, u"Love Song"_s, u"Zebra"_s});
        connect(&m_stand->player, &PlayerControl::songEnded, m_playlist.get(), &Playlist::enableNextSong);
        m_songs->setListIndex(0);
        m_stand->engine.takeCalls();
        QTest::keyClick(m_songs, Qt::Key_Return);
        QCOMPARE(m_stand->title(), u"    Glove"_s);
        for (const QString &name : {u"Love Song"_s, u"Zebra"_s, u"Glove"_s}) {
            m_stand->engine.takeCalls();
            m_stand->engine.finishSong();
            QVERIFY(m_stand->engine.takeCalls().isEmpty()); // Never inside the engine's own report.
            QTRY_COMPARE(m_stand->engine.fileName(), m_folder->path(name + u".mp3"_s));
            QCOMPARE(m_stand->title(), u"    "_s + name);
            QCOMPARE(m_songs->List(m_songs->ListIndex()), name);
        }
    }

    void twentySongsPlayAtRandom()
    {
        fill(QStringList(20, u"Glove"_s));
        m_playlist->RandomPlay = true;
        std::set<int> chosen;
        for (int i = 0; i < 200; ++i) {
            const int before = m_songs->ListIndex();
            nextSong();
            QVERIFY(m_songs->ListIndex() != before);
            chosen.insert(m_songs->ListIndex());
        }
        QVERIFY(!chosen.contains(0) && !chosen.contains(19));
        QVERIFY(chosen.size() > 15);
    }

    void aListTooShortForRandomOrderNeverFreezes()
    {
        m_playlist->RandomPlay = true;
        m_playlist->enableNextSong(); // Nothing in the list.
        QTest::qWait(0);
        fill({u"Glove"_s, u"Zebra"_s});
        m_playlist->enableNextSong();
        QTest::qWait(0);
        QCOMPARE(m_stand->engine.fileName(), QString());
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
        QVERIFY(times.verticalScrollBar()->value() > 0);
        QCOMPARE(times.verticalScrollBar()->value(), m_songs->verticalScrollBar()->value());
        QTest::mouseClick(times.viewport(), Qt::LeftButton, {}, times.viewport()->rect().center());
        QCOMPARE(m_songs->ListIndex(), times.ListIndex());
        const QSignalSpy asked(m_playlist.get(), &Playlist::menuRequested);
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

    void searchShowsMatchesAndPlaysThem()
    {
        SongSearch search(m_stand->File1, m_stand->player);
        search.show();
        auto &results = control<ListBox>(search, u"List1"_s);
        QTest::keyClicks(&control<TextBox>(search, u"Text1"_s), u"ove"_s);
        QCOMPARE(results.List(0), u"DOVE Love.mp3"_s);
        QCOMPARE(results.List(1), u"GlOVE.mp3"_s);
        QCOMPARE(results.ListCount(), 3);
        const QRect row = results.visualRect(results.model()->index(1, 0));
        QTest::mouseClick(results.viewport(), Qt::LeftButton, {}, row.center());
        QTest::mouseDClick(results.viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(m_stand->engine.fileName(), m_folder->path(u"GlOVE.mp3"_s));
        QCOMPARE(m_stand->title(), u"    GlOVE.mp3"_s);
    }

    void searchFollowsTheFolder()
    {
        SongSearch search(m_stand->File1, m_stand->player);
        auto &text = control<TextBox>(search, u"Text1"_s);
        auto &results = control<ListBox>(search, u"List1"_s);
        text.setText(u"new"_s);
        QCOMPARE(results.ListCount(), 0);
        m_folder->makeFile(u"New Song.mp3"_s);
        m_stand->File1.Refresh();
        text.setText(u"new "_s);
        QCOMPARE(results.List(0), u"NEW Song.mp3"_s);
        text.setText(u""_s);
        QCOMPARE(results.items(), m_stand->File1.items());
        search.clearSearch();
        QCOMPARE(results.ListCount(), 0);
    }

    void searchIsUsedByKeyboard()
    {
        SongSearch search(m_stand->File1, m_stand->player);
        search.show();
        auto &text = control<TextBox>(search, u"Text1"_s);
        auto &results = control<ListBox>(search, u"List1"_s);
        QTRY_VERIFY(text.hasFocus());
        QTest::keyClicks(&text, u"love"_s);
        QTest::keyClick(&text, Qt::Key_Enter);
        QCOMPARE(m_stand->title(), u"    Dove LOVE.mp3"_s);
        QTest::keyClick(&text, Qt::Key_Down);
        QTest::keyClick(&results, Qt::Key_Down);
        QTest::keyClick(&results, Qt::Key_Return);
        QCOMPARE(m_stand->title(), u"    GLOVE.mp3"_s);
        QTest::keyClick(&results, Qt::Key_Up);
        QTest::keyClick(&results, Qt::Key_Up);
        QVERIFY(text.hasFocus());
        QTest::keyClick(&text, Qt::Key_Escape);
        QVERIFY(!search.isVisible());
    }

private:
    void fill(const QStringList &names, const QString &time = u"1:00"_s)
    {
        for (const QString &name : names)
            m_playlist->addSong(name, time);
    }

    void nextSong()
    {
        m_stand->engine.takeCalls();
        m_playlist->enableNextSong();
        QStringList calls;
        QTRY_COMPARE((calls += m_stand->engine.takeCalls()).size(), 2); // File name and Play.
    }

    template<class Control>
    Control &control(SkinWindow &window, const QString &name)
    {
        return *window.findChild<Control *>(name);
    }

    std::unique_ptr<TestFolder> m_folder;
    std::unique_ptr<PlayerStand> m_stand;
    std::unique_ptr<Playlist> m_playlist;
    ListBox *m_songs = nullptr;
    Label *m_status = nullptr;
};

QTEST_MAIN(TestPlaylistWindows)
#include "tst_playlist_windows.moc"
