// SPDX-License-Identifier: GPL-3.0-or-later
// The lists: when a click is told, what stays chosen, and which files and folders they show.
#include "controls/accessibility.h"
#include "controls/folder_lists.h"
#include "controls/skin_style.h"
#include "support/test_files.h"
#include "support/windows.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace
{
const ControlSetup setup = {u"List"_s, u"A list"_s, {0, 0, 200, 150}};
} // namespace

class ListsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installAccessibility(); }

    void aChoiceClicksOnce()
    {
        ListBox list(nullptr, setup);
        list.setItems({u"a"_s, u"b"_s, u"c"_s});
        list.show();
        const QSignalSpy clicks(&list, &ListBox::Click);
        const QSignalSpy doubles(&list, &ListBox::DblClick);
        list.activateWindow();
        list.setFocus(Qt::TabFocusReason); // The keyboard comes, and nothing is chosen by that.
        QTRY_VERIFY(list.hasFocus());
        QCOMPARE(list.ListIndex(), -1);
        list.setListIndex(1);
        list.setListIndex(1);
        QCOMPARE(clicks.size(), 1);
        clickRow(list, 1); // The chosen row once more.
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, rowPlace(list, 1));
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, rowPlace(list, 2)); // Thought better of it.
        QCOMPARE(clicks.size(), 2);
        clickRow(list, 2);
        QCOMPARE(clicks.size(), 3);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {5, 140}); // Beside the rows.
        QCOMPARE(clicks.size(), 3);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, {5, 140});
        QCOMPARE(doubles.size(), 0);
        QTest::keyClick(&list, Qt::Key_Up);
        QCOMPARE(list.ListIndex(), 1);
        QCOMPARE(clicks.size(), 4);
        list.setListIndex(3);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(list.List(3), QString());
        QCOMPARE(list.List(-1), QString());
        list.setListIndex(0);
        list.setItems({u"d"_s});
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(clicks.size(), 5);
    }

    void assistiveToolsChooseAndUseRows()
    {
        ListBox list(nullptr, setup);
        list.setItems({u"a"_s, u"b"_s, u"c"_s});
        list.setMark(u"b"_s, RowMark::Paused);
        list.show();
        QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&list);
        QAccessibleInterface *row = seen->child(1);
        QCOMPARE(seen->childCount(), 3);
        QCOMPARE(seen->child(3), nullptr);
        QCOMPARE(seen->indexOfChild(row), 1);
        QCOMPARE(row->text(QAccessible::Name) + row->text(QAccessible::Description), u"bPaused"_s);
        const QPoint place = list.viewport()->mapToGlobal(rowPlace(list, 1));
        QCOMPARE(seen->childAt(place.x(), place.y()), row);
        QVERIFY(row->rect().contains(place));
        QString told;
        connect(&list, &ListBox::Click, this, [&] { told += u"Click %1 "_s.arg(list.ListIndex()); });
        connect(&list, &ListBox::DblClick, this, [&] { told += u"DblClick %1 "_s.arg(list.ListIndex()); });
        for (const QString &action : row->actionInterface()->actionNames() + row->actionInterface()->actionNames())
            row->actionInterface()->doAction(action);
        QCOMPARE(told, u"Click 1 Click 1 DblClick 1 Click 1 DblClick 1 "_s);
        QVERIFY(row->state().selected && !seen->child(0)->state().selected);
        list.setItems({u"a"_s});
        row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(!row->isValid() && row->text(QAccessible::Name).isEmpty() && list.ListIndex() == -1);
    }

    void aMenuIsAskedForWithoutChoosing()
    {
        ListBox list(nullptr, setup);
        list.setItems({u"a"_s, u"b"_s, u"c"_s});
        list.show();
        list.setListIndex(0);
        const QSignalSpy presses(&list, &ListBox::MouseDown);
        const QSignalSpy clicks(&list, &ListBox::Click);
        clickRow(list, 2, Qt::RightButton);
        QCOMPARE(list.menuRow(), 2);
        QCOMPARE(list.menuPosition(), list.viewport()->mapToGlobal(rowPlace(list, 2)));
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(&list, &key);
        QCOMPARE(list.menuRow(), 0);
        QCOMPARE(list.menuPosition().y(),
                 list.viewport()->mapToGlobal(list.visualRect(list.currentIndex()).bottomLeft()).y());
        QCOMPARE(presses.size(), 2);
        QCOMPARE(presses[1][0].value<Qt::MouseButton>(), Qt::RightButton);
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, {5, 140});
        QCOMPARE(list.menuRow(), -1);
        QCOMPARE(list.ListIndex(), 0);
        QCOMPARE(clicks.size(), 0);
    }

    void aTipBelongsToItsRow()
    {
        QApplication::setStyle(new SkinStyle);
        ListBox list(nullptr, setup);
        list.setItems({u"<b>a</b>"_s, u"<img src='/'>"_s, u"c"_s});
        list.setToolTip(u"songs"_s);
        list.setRowTip([&list](int row) { return row == 2 ? QString() : u"it is "_s + list.List(row); });
        list.show();
        list.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        const auto moveTo = [&list](const QPoint &place) {
            QMouseEvent move(QEvent::MouseMove, place, list.viewport()->mapToGlobal(place), Qt::NoButton, {}, {});
            QCoreApplication::sendEvent(list.viewport(), &move);
        };
        for (const int row : {0, 1}) {
            QCOMPARE(tipOf(list, row), u"it is "_s + list.List(row));
            const QPoint place = rowPlace(list, row);
            for (int step = 1; step < 5; ++step)
                moveTo(place + QPoint(step, 0));
            QCOMPARE(QToolTip::text(), u"it is "_s + list.List(row));
        }
        for (const QWidget *window : QApplication::topLevelWidgets()) { // A name is no HTML.
            if (const auto *label = qobject_cast<const QLabel *>(window))
                QCOMPARE(label->textFormat(), Qt::PlainText);
        }
        moveTo(rowPlace(list, 0));
        QTRY_VERIFY(!QToolTip::isVisible());
        QCOMPARE(tipOf(list, -1), u"songs"_s);
        tipOf(list, 2);
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void aNameOfSeveralLinesHasOneRow()
    {
        ListBox list(nullptr, setup);
        const QString name = u"a\nb\u2028c"_s;
        list.setItems({name, u"b"_s});
        QCOMPARE(list.sizeHintForRow(0), list.sizeHintForRow(1));
        QCOMPARE(list.List(0), name);
    }

    void aMillionRowsAreFoundByTheirNumbers()
    {
        constexpr int count = 1'000'000;
        ListBox list(nullptr, setup);
        int texts = 0;
        list.setShownForm([&](int row, const QString &) { return ++texts, QString::number(row); });
        list.setRows(count);
        list.setListIndex(0);
        list.show();
        const auto placeOf = [&](int row) { return list.visualRect(list.model()->index(row, 0)); };
        const int page = list.viewport()->height() / placeOf(0).height();
        for (const auto &[key, row, first] : {std::tuple(Qt::Key_End, count - 1, count - page),
                                              {Qt::Key_PageUp, count - page, count - page},
                                              {Qt::Key_PageUp, count - 2 * page + 1, count - 2 * page + 1},
                                              {Qt::Key_Down, count - 2 * page + 2, count - 2 * page + 1}}) {
            QTest::keyClick(&list, key);
            QCOMPARE(list.ListIndex(), row);
            QCOMPARE(list.rowAt({5, 0}), first);
            QVERIFY(list.viewport()->rect().contains(placeOf(row)));
            QCOMPARE(list.rowAt(placeOf(row).center()), row);
        }
        list.setRows(2);
        QCOMPARE(list.rowAt({5, 0}), 0);
        QVERIFY(texts < 200);
    }

    void filesFitThePatternAndStayChosen()
    {
        const TestFolder folder;
        for (const auto &name : {u"b.MP3"_s, u"a.wav"_s, u"C.wma"_s, u"d.ogg"_s, u".e.mp3"_s})
            folder.makeFile(name);
        FileListBox list(nullptr, setup, u"*.mp3;*.wav;*.wma"_s);
        QVERIFY(list.setPath(folder.path()));
        QCOMPARE(list.items().toStringList(), QStringList({u"a.wav"_s, u"b.MP3"_s, u"C.wma"_s}));
        list.setListIndex(1);
        const QSignalSpy clicks(&list, &ListBox::Click);
        QVERIFY(!list.setPath(folder.path(u"missing"_s)));
        QVERIFY(!list.setPath({}));
        QCOMPARE(list.Path(), folder.path());
        folder.makeFile(u"A0.mp3"_s);
        list.Refresh();
        QCOMPARE(list.List(list.ListIndex()), u"b.MP3"_s);
        QCOMPARE(list.ListIndex(), 2);
        QVERIFY(QFile::remove(folder.hostPath() + u"/b.MP3"_s));
        list.Refresh();
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(clicks.size(), 0);
        QVERIFY(QDir(folder.hostPath()).removeRecursively());
        list.Refresh();
        QCOMPARE(list.ListCount(), 0);
    }

    void foldersOpenByDoubleClickAndEnter()
    {
        const TestFolder folder;
        for (const auto &name : {u"B/In"_s, u"a"_s, u".hidden"_s})
            folder.makeFolder(name);
        DirListBox list(nullptr, setup);
        const QSignalSpy changes(&list, &DirListBox::Change);
        QVERIFY(list.setPath(folder.path() + u'\\'));
        const int open = list.ListIndex();
        QCOMPARE(list.folderAt(0), u"z:\\"_s);
        QCOMPARE(list.folderAt(open), folder.path());
        QCOMPARE(list.ListCount(), open + 3);
        QVERIFY(list.List(open + 1).endsWith(u" a"_s) && list.List(open + 2).endsWith(u" B"_s));
        list.setListIndex(open + 2);
        QCOMPARE(changes.size(), 1); // Choosing opens nothing.
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(list.Path(), folder.path(u"B"_s));
        QCOMPARE(list.List(list.ListIndex() + 1).trimmed(), u"▸ In"_s);
        list.resize(400, 600);
        list.show();
        QVERIFY(QDir(folder.hostPath()).rmdir(u"B/In"_s));
        folder.makeFolder(u"B/New1"_s);
        folder.makeFolder(u"B/new2"_s);
        doubleClickRow(list, list.ListIndex()); // Open already: read again.
        QCOMPARE(changes.size(), 3);
        QTest::keyClick(&list, Qt::Key_N);
        QCOMPARE(list.folderAt(list.ListIndex()), folder.path(u"B\\New1"_s));
        QTest::keyClick(&list, Qt::Key_N);
        QCOMPARE(list.folderAt(list.ListIndex()), folder.path(u"B\\new2"_s));
        QTest::keyClicks(&list, u"new2"_s); // Begins at the one after, and comes back.
        QCOMPARE(list.folderAt(list.ListIndex()), folder.path(u"B\\new2"_s));
        list.readPath(folder.path(u"B\\In\\deeper"_s));
        QCOMPARE(list.Path(), folder.path(u"B"_s)); // What is left of the way.
        list.setListIndex(0);
        doubleClickRow(list, list.ListIndex());
        QCOMPARE(list.Path(), u"z:\\"_s);
        QCOMPARE(list.ListIndex(), 0);
        QVERIFY(!list.setPath(folder.path(u"missing"_s)));
        QCOMPARE(changes.size(), 5);
    }
};

QTEST_MAIN(ListsTest)
#include "tst_lists.moc"
