// SPDX-License-Identifier: GPL-3.0-or-later
// The context menus, their commands, and the questions they ask.
#include "filetools/menus.h"
#include "filetools/shell_windows.h"
#include "platform/drives.h"
#include "support/table.h"
#include "tests/filetools/name_tools.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace
{
struct Stand : NameTools {
    using NameTools::NameTools;

    SongMenu songMenu;
    QString pickedFolder;
    QString asked;
    Menus menus{&engine, {songMenu, songList, player, formatMp3, [this](const QString &title, const QString &start) {
                              asked = title + u'|' + start;
                              return pickedFolder;
                          }}};

    void choose(int item) { songMenu.mnuSongItem.choose(item); }

    // The play modes that are on, and the timers that run.
    QString state() const
    {
        QStringList on;
        for (const auto &[is, name] : {std::pair(songMenu.mnuSongItem.Checked(AutoPlayItem), u"auto"_s),
                                       {songMenu.mnuSongItem.Checked(RepeatSongItem), u"song"_s},
                                       {songMenu.mnuSongItem.Checked(RepeatAllItem), u"all"_s},
                                       {isDue(u"AutoPlaySong"_s), u"AutoPlaySong"_s},
                                       {isDue(u"Timer2"_s), u"Timer2"_s}})
            on += is ? QStringList(name) : QStringList();
        return on.join(u' ');
    }
};
} // namespace

class MenusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandsForOtherWindowsLeaveAsSignals()
    {
        Stand stand;
        const Menus &menus = stand.menus;
        QStringList came;
        const auto note = [&](auto signal, const QString &name) {
            connect(&menus, signal, this, [&came, name] { came += name; });
        };
        note(&Menus::nameToolsWanted, u"name tools"_s);
        note(&Menus::optionsWanted, u"options"_s);
        note(&Menus::playListToggled, u"play list"_s);
        note(&Menus::songSearchWanted, u"search"_s);
        note(&Menus::aboutWanted, u"about"_s);
        note(&Menus::playListCleared, u"clear"_s);
        note(&Menus::playListLoadWanted, u"load"_s);
        note(&Menus::playListSaveWanted, u"save"_s);
        connect(&menus, &Menus::randomSwitched, this, [&](bool on) { came += on ? u"random"_s : u"in order"_s; });
        for (const int item : {0, 3, 7, 8, 9, 10, 11}) {
            stand.choose(item);
            QVERIFY(!stand.songMenu.mnuSongItem.Checked(item));
        }
        QCOMPARE(came.join(u'|'), u"name tools|options|play list|search|about"_s);
        came.clear();
        MenuItems &ofPlayList = stand.menus.mnuPlayListItems;
        for (const int item : {ClearListItem, LoadListItem, SaveListItem, RandomItem, SortListItem}) {
            for (const bool first : {true, false}) {
                ofPlayList.choose(item);
                QCOMPARE(ofPlayList.Checked(item), first && item >= RandomItem);
            }
        }
        QCOMPARE(came.join(u'|'), u"clear|clear|load|load|save|save|random|in order"_s);
    }

    void playModesExcludeEachOther()
    {
        Stand stand({u"a.mp3"_s});
        for (const auto &[item, state] : {
                 std::pair(AutoPlayItem, u"auto AutoPlaySong"_s),
                 {RepeatSongItem, u"song AutoPlaySong Timer2"_s}, // The old mode's timer stays on.
                 {RepeatAllItem, u"all AutoPlaySong Timer2"_s},
                 {RepeatAllItem, u"AutoPlaySong Timer2"_s},
                 {AutoPlayItem, u"auto AutoPlaySong Timer2"_s},
                 {AutoPlayItem, u"Timer2"_s},
             }) {
            stand.choose(item);
            QCOMPARE(stand.state(), state);
        }
    }

    void repeatRemembersItsSongAndStopsWithIt()
    {
        Stand stand({u"a.mp3"_s});
        stand.songList.setPointedSong(u"a.mp3"_s);
        stand.choose(RepeatSongItem);
        QCOMPARE(stand.player.RepeatSongName, u"a.mp3"_s);
        QCOMPARE(stand.takeCalls(), u""_s);
        stand.choose(RepeatSongItem);
        QCOMPARE(stand.takeCalls(), u"Stop"_s);
        QCOMPARE(stand.state(), u""_s);
    }

    void songMenuEndsItsFreeze()
    {
        Stand stand;
        stand.songList.SongMenuOpen = true;
        stand.choose(RefreshItem);
        QVERIFY(!stand.songList.SongMenuOpen);
        stand.songList.SongMenuOpen = true;
        stand.menus.openSongMenu({});
        QApplication::activePopupWidget()->close(); // Dismissed without a choice.
        QTRY_VERIFY(!stand.songList.SongMenuOpen);
    }

    void deletesThePointedSong()
    {
        Stand stand({u"a.mp3"_s, u"b.mp3"_s});
        stand.songList.setPointedSong(u"a.mp3"_s);
        stand.choose(DeleteSongItem); // No is said.
        QCOMPARE(stand.File1.ListCount(), 2);
        MsgBox::answerFromNowOn({MsgBox::Answer::Yes, MsgBox::Answer::Yes});
        stand.choose(DeleteSongItem);
        QCOMPARE(stand.File1.items().toStringList(), QStringList(u"b.mp3"_s));
        QCOMPARE(stand.List1.ListCount(), 2);
        QSignalSpy changes(&stand.songList, &SongFolder::changed); // The desktop's keys follow these.
        stand.choose(RefreshItem);
        QCOMPARE(stand.List1.ListCount(), 1);
        QCOMPARE(changes.size(), 1);
        stand.File1.setListIndex(0);
        QCOMPARE(changes.size(), 2);
        takeBoxes();
        stand.choose(DeleteSongItem); // It is gone already.
        QCOMPARE(takeBoxes(), QStringList());
    }

    void opensOverFilesAndNames()
    {
        Stand stand({u"a.mp3"_s, u"b.mp3"_s});
        stand.openOn(u"a.mp3"_s);
        clickRow(stand.formatMp3.File1, 0);
        QCOMPARE(stand.menus.mnuTagEditItems.Caption(0), u"Move... a.mp3"_s);
        QVERIFY(!stand.formatMp3.MoveMenuOpen && !QApplication::activePopupWidget());
        clickRow(stand.formatMp3.File1, 1, Qt::RightButton);
        QCOMPARE(stand.menus.mnuTagEditItems.Caption(0), u"Move... b.mp3"_s);
        QCOMPARE(stand.formatMp3.File1.ListIndex(), 0);
        QVERIFY(stand.formatMp3.MoveMenuOpen);
        QApplication::activePopupWidget()->close();
        QTRY_VERIFY(!stand.formatMp3.MoveMenuOpen);
        QTest::mousePress(stand.formatMp3.File1.viewport(), Qt::RightButton, {}, {5, 250}); // Beside the files.
        QVERIFY(!qobject_cast<QMenu *>(QApplication::activePopupWidget())->actions()[0]->isEnabled());
        QApplication::activePopupWidget()->close();
        QTRY_VERIFY(!stand.formatMp3.MoveMenuOpen);
        QTest::mousePress(&stand.formatMp3.Text1, Qt::RightButton);
        QVERIFY(!QApplication::activePopupWidget());
        QTest::mousePress(&stand.formatMp3.Text1, Qt::MiddleButton);
        QCOMPARE(QApplication::activePopupWidget()->objectName(), u"mnuMp3NameItem"_s);
        qobject_cast<QMenu *>(QApplication::activePopupWidget())->actions().first()->trigger();
        QTRY_COMPARE(stand.formatMp3.Text1.Text(), u"Ärger & Söhne - Blue Café.mp3"_s); // Without padding NULs.
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(&stand.formatMp3.Text1, &key);
        QCOMPARE(QApplication::activePopupWidget()->objectName(), u"mnuMp3NameItem"_s);
        QApplication::activePopupWidget()->close();
    }

    void movesThePointedFile_data()
    {
        // What is picked is a folder within the song's own, "" for that itself; the boxes are the question and the
        // error.
        const auto row = table<QString, MsgBox::Answer, int>("picked", "answer", "boxes");
        row("yes", u"/new"_s, MsgBox::Answer::Yes, 1);
        row("no", u"/new"_s, MsgBox::Answer::No, 1);
        row("no folder picked", QString(), MsgBox::Answer::Yes, 0);
        row("missing folder", u"/gone"_s, MsgBox::Answer::Yes, 2);
        row("onto itself", u""_s, MsgBox::Answer::Yes, 2);
    }

    void movesThePointedFile()
    {
        QFETCH(QString, picked);
        QFETCH(MsgBox::Answer, answer);
        QFETCH(int, boxes);
        Stand stand({u"a.mp3"_s});
        const QByteArray song = stand.folder.bytesOf(u"a.mp3"_s);
        stand.folder.makeFolder(u"new"_s);
        const QString host = stand.folder.hostPath() + picked;
        stand.pickedFolder = picked.isNull() ? QString() : programPath(host);
        stand.openOn(u"a.mp3"_s);
        clickRow(stand.formatMp3.File1, 0);
        MsgBox::answerFromNowOn({answer});
        stand.formatMp3.MoveMenuOpen = true;
        stand.menus.mnuTagEditItems.choose(0);
        QVERIFY(!stand.formatMp3.MoveMenuOpen);
        QCOMPARE(stand.asked, u"Select Folder|"_s + stand.folder.path());
        const QString reason = picked.isEmpty() ? u"it is there already."_s : u"No such file or directory."_s;
        const QString why = u"\n\n"_s + stand.folder.hostPath() + u"/a.mp3 cannot be moved: "_s + reason;
        const QStringList told = {u"Mp3 Mover|Move a.mp3 To "_s + host + u'?', u"Sorry,|Error Moving"_s + why};
        QCOMPARE(takeBoxes(), told.first(boxes));
        const bool moved = boxes == 1 && answer == MsgBox::Answer::Yes;
        QCOMPARE(stand.formatMp3.File1.ListCount(), moved ? 0 : 1);
        QCOMPARE(stand.folder.bytesOf(moved ? u"new/a.mp3"_s : u"a.mp3"_s), song);
    }

    void enterLosesNothingForGood()
    {
        ShellWindows windows;
        windows.mayReplace({});
        windows.mayDeleteForGood({});
        windows.mayTrash({});
        QList<MsgBox::Buttons> buttons;
        for (const MsgBox::Shown &box : MsgBox::takeShown())
            buttons += box.buttons;
        using enum MsgBox::Buttons;
        QCOMPARE(buttons, QList({YesNoAtRisk, YesNoAtRisk, YesNo}));
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

QTEST_MAIN(MenusTest)
#include "tst_menus.moc"
