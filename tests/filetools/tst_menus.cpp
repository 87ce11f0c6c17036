// The context menus, their commands, and the questions they ask.
#include "filetools/menus.h"
#include "filetools/shell_windows.h"
#include "tests/filetools/name_tools.h"

#include <QApplication>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
struct Stand : NameTools {
    using NameTools::NameTools;

    QString pickedFolder;
    Menus menus{&engine,
                {modes, main.songs(), main.player(), main.AutoPlaySong, main.Timer2, formatMp3,
                 [this](const QString &title, const QString &start) {
                     asked = title + u'|' + start;
                     return pickedFolder;
                 }}};
    QString asked;

    bool checked(SongMenuItem item) const { return modes.isChecked(item); }
    void choose(int item) { modes.songMenu().choose(item); }
};
} // namespace

class TestMenus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandsForOtherWindowsLeaveAsSignals_data()
    {
        QTest::addColumn<bool>("ofPlayList");
        QTest::addColumn<int>("item");
        QTest::addColumn<QByteArray>("wanted"); // The one signal that comes; none for "".
        QTest::newRow("name tools") << false << 0 << QByteArray("nameToolsWanted()");
        QTest::newRow("options") << false << 3 << QByteArray("optionsWanted()");
        QTest::newRow("play list") << false << 7 << QByteArray("playListToggled()");
        QTest::newRow("search") << false << 8 << QByteArray("songSearchWanted()");
        QTest::newRow("separator") << false << 9 << QByteArray();
        QTest::newRow("about") << false << 10 << QByteArray("aboutWanted()");
        QTest::newRow("mp3 info") << false << 11 << QByteArray();
        QTest::newRow("clear") << true << 0 << QByteArray("playListCleared()");
        QTest::newRow("load") << true << 1 << QByteArray("playListLoadWanted()");
        QTest::newRow("save") << true << 2 << QByteArray("playListSaveWanted()");
        QTest::newRow("random") << true << 4 << QByteArray("randomSwitched(bool)");
        QTest::newRow("sort") << true << 5 << QByteArray();
    }

    void commandsForOtherWindowsLeaveAsSignals()
    {
        QFETCH(bool, ofPlayList);
        QFETCH(int, item);
        Stand stand(QStringList{});
        const QMetaObject &meta = Menus::staticMetaObject;
        std::vector<std::unique_ptr<QSignalSpy>> spies;
        for (int index = meta.methodOffset(); index < meta.methodCount(); ++index)
            if (meta.method(index).methodType() == QMetaMethod::Signal)
                spies.push_back(std::make_unique<QSignalSpy>(&stand.menus, meta.method(index)));
        MenuItems &menu = ofPlayList ? stand.menus.mnuPlayListItems : stand.modes.songMenu();
        menu.choose(item);
        QByteArray came;
        for (const auto &spy : spies)
            for (int call = 0; call < spy->size(); ++call)
                came += spy->signal().isEmpty() ? QByteArray() : spy->signal();
        QTEST(came, "wanted");
        QCOMPARE(menu.Checked(item), ofPlayList && item >= RandomItem);
        menu.choose(item);
        QVERIFY(!menu.Checked(item));
    }

    void playModesExcludeEachOther()
    {
        Stand stand({u"a.mp3"_s});
        stand.choose(AutoPlayItem);
        QVERIFY(stand.checked(AutoPlayItem) && stand.main.AutoPlaySong.Enabled());
        stand.choose(RepeatSongItem);
        QVERIFY(!stand.checked(AutoPlayItem) && stand.checked(RepeatSongItem));
        QVERIFY(stand.main.AutoPlaySong.Enabled() && stand.main.Timer2.Enabled()); // The old mode's timer stays on.
        stand.choose(RepeatAllItem);
        QVERIFY(stand.checked(RepeatAllItem) && !stand.checked(RepeatSongItem));
        stand.choose(RepeatAllItem);
        QVERIFY(!stand.checked(RepeatAllItem) && !stand.checked(RepeatSongItem) && !stand.checked(AutoPlayItem));
        stand.choose(AutoPlayItem);
        stand.choose(AutoPlayItem);
        QVERIFY(!stand.main.AutoPlaySong.Enabled() && stand.main.Timer2.Enabled());
    }

    void repeatRemembersItsSongAndStopsWithIt()
    {
        Stand stand({u"a.mp3"_s});
        stand.engine.expectNothing();
        stand.main.songs().setPointedSong(u"a.mp3"_s);
        stand.choose(RepeatSongItem);
        QCOMPARE(stand.main.player().RepeatSongName, u"a.mp3"_s);
        stand.engine.expect({u"Stop"_s});
        stand.choose(RepeatSongItem);
        QVERIFY(stand.engine.allCame() && !stand.main.Timer2.Enabled());
    }

    void songMenuEndsItsFreeze()
    {
        Stand stand(QStringList{});
        stand.main.songs().SongMenuOpen = true;
        stand.choose(RefreshItem);
        QVERIFY(!stand.main.songs().SongMenuOpen);
        stand.main.songs().SongMenuOpen = true;
        stand.menus.openSongMenu({});
        QApplication::activePopupWidget()->close(); // Dismissed without a choice.
        QTRY_VERIFY(!stand.main.songs().SongMenuOpen);
    }

    void deletesThePointedSong()
    {
        Stand stand({u"a.mp3"_s, u"b.mp3"_s});
        stand.main.songs().setPointedSong(u"a.mp3"_s);
        stand.choose(DeleteSongItem); // No is said.
        QCOMPARE(stand.main.File1.ListCount(), 2);
        MsgBox::answerFromNowOn({MsgBox::Answer::Yes, MsgBox::Answer::Yes});
        stand.choose(DeleteSongItem);
        QCOMPARE(stand.main.File1.items(), QStringList(u"b.mp3"_s));
        QCOMPARE(stand.main.List1.ListCount(), 2);
        stand.choose(RefreshItem);
        QCOMPARE(stand.main.List1.ListCount(), 1);
        MsgBox::takeShown();
        stand.choose(DeleteSongItem); // It is gone already.
        QVERIFY(MsgBox::takeShown().isEmpty());
    }

    void opensOverFilesAndNames()
    {
        Stand stand({u"a.mp3"_s, u"b.mp3"_s});
        stand.openOn(u"a.mp3"_s);
        QTest::mouseClick(stand.formatMp3.File1.viewport(), Qt::LeftButton, {}, stand.rowCentre(0));
        QCOMPARE(stand.menus.mnuTagEditItems.Caption(0), u"Move... a.mp3"_s);
        QVERIFY(!stand.formatMp3.MoveMenuOpen && !QApplication::activePopupWidget());
        QTest::mousePress(stand.formatMp3.File1.viewport(), Qt::RightButton, {}, stand.rowCentre(1));
        QCOMPARE(stand.menus.mnuTagEditItems.Caption(0), u"Move... b.mp3"_s);
        QCOMPARE(stand.formatMp3.File1.ListIndex(), 0);
        QVERIFY(stand.formatMp3.MoveMenuOpen);
        QApplication::activePopupWidget()->close();
        QTRY_VERIFY(!stand.formatMp3.MoveMenuOpen);

        QTest::mousePress(&stand.formatMp3.Text1, Qt::RightButton);
        QVERIFY(!QApplication::activePopupWidget());
        QTest::mousePress(&stand.formatMp3.Text1, Qt::MiddleButton);
        QCOMPARE(QApplication::activePopupWidget()->objectName(), u"mnuMp3NameItem"_s);
        qobject_cast<QMenu *>(QApplication::activePopupWidget())->actions().first()->trigger();
        QCOMPARE(stand.formatMp3.Text1.Text(), u"Ärger & Söhne - Blue Café.mp3"_s); // Without padding NULs.
        QApplication::activePopupWidget()->close();
    }

    void movesThePointedFile_data()
    {
        QTest::addColumn<QString>("picked"); // A folder of the test's, "." for the file's own.
        QTest::addColumn<bool>("yes");
        QTest::addColumn<bool>("moved");
        QTest::addColumn<QString>("shown");
        const QString question = u"Move a.mp3 To %1?|Mp3 Mover"_s;
        QTest::newRow("yes") << u"new"_s << true << true << question;
        QTest::newRow("no") << u"new"_s << false << false << question;
        QTest::newRow("no folder picked") << QString() << true << false << QString();
        QTest::newRow("missing folder") << u"gone"_s << true << false << question + u"|Error Moving|Sorry,"_s;
        QTest::newRow("onto itself") << u"."_s << true << false << question + u"|Error Moving|Sorry,"_s;
    }

    void movesThePointedFile()
    {
        QFETCH(QString, picked);
        QFETCH(bool, yes);
        QFETCH(bool, moved);
        QFETCH(QString, shown);
        Stand stand({u"a.mp3"_s});
        const QByteArray song = stand.folder.bytesOf(u"a.mp3"_s);
        stand.folder.makeFolder(u"new"_s);
        if (!picked.isEmpty())
            stand.pickedFolder = picked == u"."_s ? stand.folder.path() : stand.folder.path(picked);
        stand.openOn(u"a.mp3"_s);
        QTest::mouseClick(stand.formatMp3.File1.viewport(), Qt::LeftButton, {}, stand.rowCentre(0));
        MsgBox::answerFromNowOn({yes ? MsgBox::Answer::Yes : MsgBox::Answer::No});
        stand.formatMp3.MoveMenuOpen = true;
        stand.menus.mnuTagEditItems.choose(0);
        QVERIFY(!stand.formatMp3.MoveMenuOpen);
        QCOMPARE(stand.asked, u"Select Folder|"_s + stand.folder.path());
        QStringList texts;
        for (const MsgBox::Shown &box : MsgBox::takeShown())
            texts += {box.text, box.title};
        const QString host = stand.folder.hostPath() + (picked == u"."_s ? QString() : u'/' + picked);
        QCOMPARE(texts.join(u'|'), shown.contains(u'%') ? shown.arg(host) : shown);
        QCOMPARE(stand.formatMp3.File1.ListCount(), moved ? 0 : 1);
        QCOMPARE(stand.folder.bytesOf(moved ? u"new/a.mp3"_s : u"a.mp3"_s), song);
    }

    void aLongCopyCanBeStopped()
    {
        constexpr qint64 beyond32Bits = 5'000'000'000;
        ShellWindows patient;
        QVERIFY(patient.copyGoesOn(u"z:\\a.mp3"_s, 1, beyond32Bits));
        QVERIFY(!QApplication::activeModalWidget());
        ShellWindows impatient(0);
        QVERIFY(impatient.copyGoesOn(u"z:\\a.mp3"_s, beyond32Bits / 2, beyond32Bits));
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        QVERIFY(progress && progress->labelText().contains(u"/a.mp3"_s));
        QCOMPARE(progress->value() * 2, progress->maximum());
        progress->findChild<QPushButton *>()->click();
        QVERIFY(!impatient.copyGoesOn(u"z:\\a.mp3"_s, beyond32Bits, beyond32Bits));
    }
};

QTEST_MAIN(TestMenus)
#include "tst_menus.moc"
