// The tag editor's window on real files: what it shows, what it writes, and what it refuses.
#include "app/mp3_frm.h"
#include "controls/msg_box.h"
#include "tagedit/tag_edit.h"
#include "tests/support/fake_engine.h"
#include "tests/support/test_files.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestTagEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        MsgBox::answerFromNowOn({});
        MsgBox::takeShown();
        m_folder = std::make_unique<TestFolder>();
        m_windows = std::make_unique<Windows>();
        m_windows->editor.show();
    }

    void showsTagAndDataOfASong()
    {
        m_windows->editor.reload(m_folder->copySample(u"id3v1-spaces.mp3"_s));
        QVERIFY(isShown(u"frmID3"_s) && isShown(u"frmButtons"_s) && isShown(u"frmMPEG"_s));
        QVERIFY(!isShown(u"frmNoTag"_s) && !isShown(u"frmNoMPEG"_s));
        QCOMPARE(box(u"Title"_s).Text(), u"Blue Café"_s);
        QCOMPARE(box(u"Year"_s).Text(), u"1999"_s);
        QCOMPARE(control<ComboBox>(u"Genre"_s).currentText(), u"Rock"_s);

        m_windows->editor.reload(m_folder->copySample(u"cbr-128-stereo-flags.mp3"_s));
        const QStringList lines = {
            u"Size: 5.7 KB"_s,     u"Length: 0:00"_s, u"MPEG 1.0 Layer 3"_s,  u"128Kbit"_s,
            u"44100 Hz  Stereo"_s, u"CRCs: No"_s,     u"Copyrighted:  Yes"_s, u"Emphasis:  50/15 microsec"_s,
            u"Original:  No"_s};
        QStringList shown;
        for (const char16_t *name : {u"labSize", u"labLength", u"labLayer", u"labBitRate", u"labFreqChan", u"labCRC",
                                     u"labCopy", u"labEmphasis", u"labOriginal"})
            shown += label(QString::fromUtf16(name));
        QCOMPARE(shown, lines);
    }

    void showsWhatIsMissing()
    {
        m_windows->editor.reload(m_folder->copySample(u"garbage.mp3"_s));
        QVERIFY(isShown(u"frmNoTag"_s) && isShown(u"frmNoMPEG"_s));
        QVERIFY(!isShown(u"frmID3"_s) && !isShown(u"frmButtons"_s) && !isShown(u"frmMPEG"_s));

        m_windows->editor.reload(m_folder->copySample(u"id3v1-spaces.mp3"_s));
        m_windows->editor.reload(m_folder->path(u"gone.mp3"_s));
        QCOMPARE(box(u"Title"_s).Text(), u"Blue Café"_s);
    }

    void savesWhatWasTyped()
    {
        m_windows->editor.reload(m_folder->copySample(u"id3v1-spaces.mp3"_s, u"song.mp3"_s));
        const QByteArray before = m_folder->bytesOf(u"song.mp3"_s);
        ComboBox &genre = control<ComboBox>(u"Genre"_s);
        QCOMPARE(genre.ListCount(), 149);
        genre.setListIndex(genre.findText(u"Jazz"_s));
        box(u"Title"_s).setText(u"日 Title"_s);
        press(u"cmdSave"_s);
        const QByteArray after = m_folder->bytesOf(u"song.mp3"_s);
        QCOMPARE(after.size(), before.size());
        QCOMPARE(after.chopped(128), before.chopped(128));
        QCOMPARE(after.last(128).first(33), "TAG? Title" + QByteArray(23, ' '));
        QCOMPARE(after.back(), static_cast<char>(146));
        QCOMPARE(box(u"Title"_s).Text(), u"? Title"_s);

        genre.setListIndex(-1);
        press(u"cmdSave"_s);
        QCOMPARE(m_folder->bytesOf(u"song.mp3"_s).back(), static_cast<char>(255));
        genre.setListIndex(3); // A number without a name leaves the choice as it is.
        box(u"Title"_s).setText(u"unsaved"_s);
        press(u"cmdCancel"_s);
        QCOMPARE(genre.ListIndex(), 3);
        QCOMPARE(box(u"Title"_s).Text(), u"? Title"_s);
    }

    void keepsTextTypedBehindPaddingNuls()
    {
        m_windows->editor.reload(m_folder->copySample(u"id3v1-nul.mp3"_s));
        QTest::keyClick(&box(u"Title"_s), Qt::Key_End);
        QTest::keyClicks(&box(u"Title"_s), u" (live)"_s);
        QTest::keyClick(&box(u"Title"_s), Qt::Key_Return); // As Save does.
        press(u"cmdCancel"_s);                             // Read again.
        QCOMPARE(box(u"Title"_s).Text(), u"Blue Café (live)"_s);
    }

    void addsATagWithTextsFromTheChosenName()
    {
        const QString path = m_folder->copySample(u"cbr-128-joint.mp3"_s, u"Some Artist - Some Song.mp3"_s);
        m_windows->main.setMusicFolder(m_folder->path());
        m_windows->main.File1.setListIndex(0);
        const QByteArray before = m_folder->bytesOf(u"Some Artist - Some Song.mp3"_s);
        m_windows->editor.reload(path);
        press(u"cmdAdd"_s);
        const QByteArray after = m_folder->bytesOf(u"Some Artist - Some Song.mp3"_s);
        QCOMPARE(after.size(), before.size() + 128);
        QCOMPARE(after.last(129), QByteArray(1, '\0') + "TAG" + QByteArray(124, '\0') + '\xFF');
        QVERIFY(isShown(u"frmID3"_s) && isShown(u"frmButtons"_s) && !isShown(u"frmNoTag"_s));
        QCOMPARE(box(u"Artist"_s).Text(), u"Some Artist"_s);
        QCOMPARE(box(u"Title"_s).Text(), u"Some Song"_s);
        QCOMPARE(box(u"Comment"_s).Text(), u"Tagged With KIV Mp3"_s);
        QCOMPARE(control<ComboBox>(u"Genre"_s).ListIndex(), -1);
    }

    void refusesTheSongThatPlays()
    {
        const QString path = m_folder->copySample(u"id3v1-spaces.mp3"_s, u"song.mp3"_s);
        const QByteArray before = m_folder->bytesOf(u"song.mp3"_s);
        m_windows->editor.reload(path);
        m_windows->main.player().open(m_folder->path() + u"\\\\song.mp3"_s);
        press(u"cmdSave"_s);
        press(u"cmdRemove"_s);
        press(u"cmdAdd"_s);
        const auto shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 3);
        QCOMPARE(shown[0].text + u'|' + shown[0].title, u"Can't Edit The Playing Song|ReName Error"_s);
        QVERIFY(shown[0].icon == MsgBox::Icon::Information);
        QCOMPARE(shown[1].text + u'|' + shown[1].title, u"Can't Edit Playing Song|Tag Error"_s);
        QCOMPARE(shown[2].text, shown[1].text);
        QCOMPARE(m_folder->bytesOf(u"song.mp3"_s), before);

        QTRY_VERIFY(!control<Label>(u"cmdSave"_s).isEnabled());
        m_windows->main.Label10.press(); // A song that is held still plays.
        QTest::qWait(20);
        QVERIFY(!control<Label>(u"cmdRemove"_s).isEnabled());
        m_windows->main.Label2.press();
        QTRY_VERIFY(control<Label>(u"cmdSave"_s).isEnabled());
        press(u"cmdSave"_s);
        QVERIFY(MsgBox::takeShown().isEmpty());
    }

private:
    template<class Control>
    Control &control(const QString &name)
    {
        return *m_windows->editor.findChild<Control *>(name);
    }
    TextBox &box(const QString &name) { return control<TextBox>(name); }
    QString label(const QString &name) { return control<Label>(name).Caption(); }
    void press(const QString &name) { control<Label>(name).press(); }
    bool isShown(const QString &name) { return control<Frame>(name).isVisible(); }

    struct Windows {
        FakeEngine engine;
        PlayModes modes{&engine};
        Mp3Frm main{engine, modes};
        TagEdit editor{main.player(), main.songs()};
    };
    std::unique_ptr<TestFolder> m_folder;
    std::unique_ptr<Windows> m_windows;
};

QTEST_MAIN(TestTagEdit)
#include "tst_tag_edit.moc"
