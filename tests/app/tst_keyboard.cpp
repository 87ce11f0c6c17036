// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard in every window: where it begins, how Tab goes on, what leaves the window.
#include "app/program.h"
#include "support/fake_engine.h"
#include "support/table.h"
#include "support/test_files.h"
#include "support/windows.h"

using namespace Qt::StringLiterals;

namespace
{
void open(SkinWindow &window)
{
    window.show();
    window.activateWindow();
    QTRY_VERIFY(window.isActiveWindow() && window.focusWidget());
}
} // namespace

class KeyboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabGoesOnAsPeopleRead_data()
    {
        const auto row = table<QString>("order"); // Beginning with the control that has the keyboard first.
        row("Mp3Frm", u"File1 VScroll1 Label9 Label6 HScroll1 bPrev bPlay bPause bStop bNext Label8 "
                      u"ListSwitch"_s);
        row("ToolBar", u"Dir1 File1 Label3 Label2 Drive1 Picture1"_s);
        row("FormatMp3", u"Dir1 File1 Text1 Label2"_s);
        row("TagEdit", u"Title Artist Album Year Genre Comment cmdRemove cmdCancel cmdSave"_s);
        row("Playlist", u"List1 Picture1"_s);
        row("SongSearch", u"Text1 List1 Label1"_s);
        row("frmOptions", u"Check1 Check2 Check3 Check4 cboSkin Label1"_s);
        row("About", u"cmdOk cmdProcesses"_s);
    }

    void tabGoesOnAsPeopleRead()
    {
        QFETCH(QString, order);
        SkinWindow &window = skinWindow(QString::fromLatin1(QTest::currentDataTag()));
        open(window);
        QStringList met;
        do {
            met += window.focusWidget()->objectName();
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        } while (met.size() < 20 && window.focusWidget()->objectName() != met[0]);
        QCOMPARE(met.join(u' '), order);
        window.focusWidget()->clearFocus();
        QTest::keyClick(&window, Qt::Key_Escape);
        QCOMPARE(window.isVisible(), window.objectName() == u"Mp3Frm"_s);
    }

    void theKeyboardGoesOnToOtherWindowsAndComesBack()
    {
        SkinWindow &first = skinWindow(u"About"_s), &second = m_program.mainWindow();
        open(second);
        QTest::keyClick(&second, Qt::Key_Tab);
        QWidget *last = second.focusWidget();
        open(first);
        QTest::keyClick(&first, Qt::Key_F6);
        QTRY_VERIFY(second.isActiveWindow());
        QTest::keyClick(&second, Qt::Key_F6);
        QTRY_VERIFY(first.isActiveWindow());
        second.hide();
        QApplication::setActiveWindow(&second); // As a desktop may do that has not seen it go.
        open(second);
        QCOMPARE(second.focusWidget(), last);
    }

    void theKeyboardsOwnTransportWorksInEveryWindow()
    {
        const TestFolder folder;
        folder.copySample(u"tone-440.mp3"_s, u"a.mp3"_s);
        m_program.mainWindow().setMusicFolder(folder.path());
        m_engine.takeCalls();
        const auto press = [this](QWidget &window, Qt::Key key) {
            open(static_cast<SkinWindow &>(window));
            QKeyEvent event(QEvent::KeyPress, key, {}); // QTest does not know them all.
            QCoreApplication::sendEvent(window.focusWidget(), &event);
            return m_engine.takeCalls().join(u' ').remove(m_program.mainWindow().File1.Path() + u'\\');
        };
        QCOMPARE(press(m_program.mainWindow(), Qt::Key_MediaNext), u"FileName a.mp3 Play"_s);
        QCOMPARE(press(skinWindow(u"SongSearch"_s), Qt::Key_MediaPlay), u"Pause"_s);
        QCOMPARE(press(skinWindow(u"TagEdit"_s), Qt::Key_MediaTogglePlayPause), u"Play"_s);
        QCOMPARE(press(skinWindow(u"Playlist"_s), Qt::Key_MediaPause), u"Pause"_s);
        QCOMPARE(press(skinWindow(u"About"_s), Qt::Key_MediaPrevious), u"FileName a.mp3 Play"_s);
        QCOMPARE(press(m_program.mainWindow(), Qt::Key_MediaStop), u"Stop"_s);
    }

private:
    FakeEngine m_engine;
    Program m_program{m_engine};
};

QTEST_MAIN(KeyboardTest)
#include "tst_keyboard.moc"
