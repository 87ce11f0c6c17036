// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor's window on real files: what it shows, what it writes, and what it refuses.
#include "support/core_stand.h"
#include "support/windows.h"
#include "tagedit/tag_edit.h"

using namespace Qt::StringLiterals;

class TagEditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_windows = std::make_unique<Windows>();
        m_windows->editor.show();
        MsgBox::answerFromNowOn({});
    }

    void showsTagAndDataOfASong()
    {
        edit(u"id3v1-spaces.mp3"_s);
        QCOMPARE(shownFrames(), u"frmID3 frmButtons frmMPEG"_s);
        QCOMPARE(box(u"Title"_s).Text(), u"Blue Café"_s);
        QCOMPARE(box(u"Year"_s).Text(), u"1999"_s);
        QCOMPARE(genre().currentText(), u"Rock"_s);

        edit(u"cbr-128-stereo-flags.mp3"_s);
        QStringList shown;
        for (const char16_t *name : {u"labSize", u"labLength", u"labLayer", u"labBitRate", u"labFreqChan", u"labCRC",
                                     u"labCopy", u"labEmphasis", u"labOriginal"})
            shown += button(QString::fromUtf16(name)).Caption();
        QCOMPARE(shown.join(u'|'), u"Size: 5.7 KB|Length: 0:00|MPEG 1.0 Layer 3|128Kbit|44100 Hz  Stereo|CRCs: No|"
                                   "Copyrighted:  Yes|Emphasis:  50/15 microsec|Original:  No"_s);
    }

    void showsWhatIsMissing()
    {
        edit(u"garbage.mp3"_s);
        QCOMPARE(shownFrames(), u"frmNoTag frmNoMPEG"_s);
        const QByteArray before = bytes();
        QTest::keyClick(&m_windows->editor, Qt::Key_Return); // There is nothing to save.
        QCOMPARE(bytes(), before);
        edit(u"id3v1-spaces.mp3"_s);
        m_windows->editor.reload(folder().path(u"gone.mp3"_s));
        QCOMPARE(box(u"Title"_s).Text(), u"Blue Café"_s);
    }

    void savesWhatWasTyped()
    {
        edit(u"id3v1-spaces.mp3"_s);
        const QByteArray before = bytes();
        QCOMPARE(genre().ListCount(), 149);
        genre().setListIndex(genre().findText(u"Jazz"_s));
        box(u"Title"_s).setText(u"日 Title"_s);
        button(u"cmdSave"_s).press();
        const QByteArray after = bytes();
        QCOMPARE(after.chopped(128), before.chopped(128));
        QCOMPARE(after.last(128).first(33), "TAG? Title" + QByteArray(23, ' '));
        QCOMPARE(after.back(), static_cast<char>(146));
        QCOMPARE(box(u"Title"_s).Text(), u"? Title"_s);

        genre().setListIndex(-1);
        button(u"cmdSave"_s).press();
        QCOMPARE(bytes().back(), static_cast<char>(255));
        genre().setListIndex(3); // A number without a name leaves the choice as it is.
        box(u"Title"_s).setText(u"unsaved"_s);
        button(u"cmdCancel"_s).press();
        QCOMPARE(genre().ListIndex(), 3);
        QCOMPARE(box(u"Title"_s).Text(), u"? Title"_s);
    }

    void keepsTextTypedBehindPaddingNuls()
    {
        edit(u"id3v1-nul.mp3"_s);
        QTest::keyClick(&box(u"Title"_s), Qt::Key_End);
        QTest::keyClicks(&box(u"Title"_s), u" (live)"_s);
        QTest::keyClick(&box(u"Title"_s), Qt::Key_Return); // As Save does.
        button(u"cmdCancel"_s).press();                    // Read again.
        QCOMPARE(box(u"Title"_s).Text(), u"Blue Café (live)"_s);
    }

    void addsATagWithTextsFromTheChosenName()
    {
        m_windows->core.songs.names = {u"Some Artist - Some Song.mp3"_s};
        m_windows->core.songs.row = 0;
        edit(u"cbr-128-joint.mp3"_s);
        const QByteArray before = bytes();
        genre().setListIndex(3);
        button(u"cmdAdd"_s).press();
        QCOMPARE(m_windows->editor.focusWidget(), &box(u"Title"_s));
        QCOMPARE(bytes(), before.chopped(1) + '\0' + "TAG" + QByteArray(124, '\0') + '\xFF');
        QCOMPARE(shownFrames(), u"frmID3 frmButtons frmMPEG"_s);
        QCOMPARE(box(u"Artist"_s).Text(), u"Some Artist"_s);
        QCOMPARE(box(u"Title"_s).Text(), u"Some Song"_s);
        QCOMPARE(box(u"Comment"_s).Text(), u"Tagged With KIV Mp3"_s);
        QCOMPARE(genre().ListIndex(), -1);
        button(u"cmdCancel"_s).press(); // The tag in the file is empty.
        for (const QString &name : {u"Title"_s, u"Artist"_s, u"Album"_s, u"Year"_s, u"Comment"_s})
            QCOMPARE(box(name).Text(), QString());
        const QString caption = m_windows->editor.windowTitle();
        button(u"cmdRemove"_s).press();
        QCOMPARE(shownFrames(), u"frmNoTag frmMPEG"_s);
        QCOMPARE(m_windows->editor.windowTitle(), caption);
    }

    void refusesTheSongThatPlays()
    {
        edit(u"id3v1-spaces.mp3"_s);
        const QByteArray before = bytes();
        Player &player = m_windows->core.player;
        player.open(folder().path() + u"\\\\song.mp3"_s);
        for (const QString &command : {u"cmdSave"_s, u"cmdRemove"_s, u"cmdAdd"_s})
            button(command).press();
        QCOMPARE(takeBoxes(),
                 QStringList({u"ReName Error|Can't Edit The Playing Song"_s, u"Tag Error|Can't Edit Playing Song"_s,
                              u"Tag Error|Can't Edit Playing Song"_s}));
        QCOMPARE(bytes(), before);
        QTRY_VERIFY(!button(u"cmdSave"_s).isEnabled());
        QVERIFY(!button(u"cmdRemove"_s).toolTip().isEmpty());
        QTest::keyClick(&box(u"Title"_s), Qt::Key_Return);
        QCOMPARE(takeBoxes().size(), 1);
        player.pauseOrResume(); // A paused song may not be touched either.
        QTest::qWait(20);
        QVERIFY(!button(u"cmdRemove"_s).isEnabled());
        player.stop();
        QTRY_VERIFY(button(u"cmdSave"_s).isEnabled());
        QCOMPARE(button(u"cmdSave"_s).toolTip(), QString());
        button(u"cmdSave"_s).press();
        QCOMPARE(takeBoxes(), QStringList());
        m_windows->core.takeCalls();
    }

    void knowsTheSongThatPlaysByItsFile()
    {
        edit(u"id3v1-spaces.mp3"_s);
        const QByteArray before = bytes();
        const QString host = folder().hostPath();
        QVERIFY(QFile::link(host + u"/song.mp3"_s, host + u"/link.mp3"_s));
        for (const QString &name : {u"SONG.mp3"_s, u"link.mp3"_s}) {
            m_windows->core.player.open(folder().path(name));
            button(u"cmdRemove"_s).press();
            QCOMPARE(takeBoxes().size(), 1);
        }
        QVERIFY(QFile::rename(host + u"/song.mp3"_s, host + u"/new.mp3"_s));
        m_windows->editor.reload(folder().path(u"new.mp3"_s));
        button(u"cmdRemove"_s).press();
        QCOMPARE(takeBoxes().size(), 1);
        QCOMPARE(folder().bytesOf(u"new.mp3"_s), before);
        m_windows->core.player.open(folder().copySample(u"id3v1-spaces.mp3"_s, u"Song.mp3"_s));
        button(u"cmdRemove"_s).press();
        QCOMPARE(folder().bytesOf(u"new.mp3"_s), before.chopped(128));
        m_windows->core.takeCalls();
    }

private:
    struct Windows {
        CoreStand core;
        TagEdit editor{core.player, core.songs};
    };

    // Opens a copy of a sample, "song.mp3".
    void edit(const QString &sample) { m_windows->editor.reload(folder().copySample(sample, u"song.mp3"_s)); }
    QByteArray bytes() const { return folder().bytesOf(u"song.mp3"_s); }
    const TestFolder &folder() const { return m_windows->core.folder; }
    TextBox &box(const QString &name) const { return control<TextBox>(m_windows->editor, name); }
    Label &button(const QString &name) const { return control<Label>(m_windows->editor, name); }
    ComboBox &genre() const { return control<ComboBox>(m_windows->editor, u"Genre"_s); }

    QString shownFrames() const
    {
        QStringList shown;
        for (const QString &name : {u"frmID3"_s, u"frmButtons"_s, u"frmNoTag"_s, u"frmMPEG"_s, u"frmNoMPEG"_s})
            shown += control<Frame>(m_windows->editor, name).isVisible() ? QStringList(name) : QStringList();
        return shown.join(u' ');
    }

    std::unique_ptr<Windows> m_windows;
};

QTEST_MAIN(TagEditTest)
#include "tst_tag_edit.moc"
