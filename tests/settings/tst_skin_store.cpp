// SPDX-License-Identifier: GPL-3.0-or-later
// Skins by anybody: whatever a skin.ini says and whatever its pictures are, the player stays usable and tells in a line
// what it does not show.
#include "controls/contrast.h"
#include "controls/fields.h"
#include "controls/fonts.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/shared_paint.h"
#include "controls/skin_style.h"
#include "controls/skin_text.h"
#include "controls/skin_window.h"
#include "controls/wear_skin.h"
#include "platform/desktop.h"
#include "settings/skin_store.h"
#include "skins/places.h"
#include "support/table.h"
#include "support/test_files.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QStringEncoder>
#include <QtEndian>

#include <span>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
QRgb colourOf(const Skin &skin, Colour which)
{
    return skin.colours.at(static_cast<std::size_t>(which));
}

QByteArray shippedPicture(const QString &name)
{
    QFile file(firstSkinFolder() + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The JPEG with another size in its header, which is all of it that is believed before it is decoded.
QByteArray withSize(QByteArray jpeg, quint16 width, quint16 height)
{
    const quint32 size = qToBigEndian(quint32(height) << 16 | width);
    return jpeg.replace(jpeg.indexOf("\xFF\xC0") + 5, 4, reinterpret_cast<const char *>(&size), 4);
}

// The player's own place for skins, empty for each test.
struct Home {
    Home() : folder(QDir::tempPath())
    {
        qputenv("KIV_MP3_HOME", QFile::encodeName(folder.hostPath()));
        wearSkin(firstSkin());
        forgetComplaints();
    }
    ~Home()
    {
        wearSkin(firstSkin());
        qunsetenv("KIV_MP3_HOME");
    }

    // A file of a skin of the user's; the skin's folder is made with its first.
    void add(const QString &skin, const QString &file, const QByteArray &bytes) const
    {
        folder.makeFolder(u"skins/"_s + skin);
        folder.makeFile(u"skins/"_s + skin + u'/' + file, bytes);
    }

    static void wear(const QString &skin) { wearSkin(readSkin(*findSkin(skin))); }

    TestFolder folder;
};

// A window with a text on its picture, in a part of it.
struct Window {
    QRgb pixel(const QPoint &place) { return window.grab().toImage().pixel(place); }
    QRgb corner() { return pixel({3, 40}); }

    SkinWindow window{u"SongSearch"_s, u"Window"_s, Picture::SongSearchSkin, places::SongSearch::window};
    Frame part{&window, {u"Part"_s, u"A part"_s, places::SongSearch::Label1}, {}};
    Label text{&part, part.inside({u"Label1"_s, u"A text"_s, places::SongSearch::Label1}), u"Close"_s};
};

bool shows(QWidget &widget, QRgb colour)
{
    const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const std::span pixels(reinterpret_cast<const QRgb *>(image.constBits()), image.sizeInBytes() / sizeof(QRgb));
    return std::find(pixels.begin(), pixels.end(), colour) != pixels.end();
}
} // namespace

class SkinStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(new SkinStyle);
        QApplication::setFont(fonts::font(fonts::Face::Arial, 13));
    }

    void coloursAreReadOrToldAndLeft_data()
    {
        // The caption's colour as shown, and what the fault begins with, "" for none.
        const auto row = table<QByteArray, QByteArray, QByteArray>("text", "caption", "fault");
        row("in any case, with blanks", " CAPTION = #FFEE00 ", "#ffee00", "");
        row("a comment", ";caption=#ffee00", "#f4ead8", "");
        row("no colour", "caption=yellow", "#f4ead8", "caption=yellow is no colour");
        row("too short", "caption=#fff", "#f4ead8", "caption=#fff is no colour");
        row("signs", "caption=#0xffee", "#f4ead8", "caption=#0xffee is no colour");
        row("clear", "caption=#ffee0000", "#f4ead8", "caption=#ffee0000 is no colour");
        row("a misspelt name", "captoin=#ffee00", "#f4ead8", "there is no colour named captoin");
        row("just too near", "caption=#6e6e6e", "#f4ead8", "caption=#6e6e6e can hardly be seen on graphite");
        row("another ground", "graphite=#f4ead8\nface=#ffffff", "#000000", "");
        row("grounds apart", "graphite=#ffffff\nface=#000000\ncaption=#ffffff", "#767676", "caption=#ffffff can");
        row("a field", "wellBackground=#e9dfcb\nlistText=#e9dfcc", "#f4ead8",
            "listText=#e9dfcc can hardly be seen on wellBackground");
        row("a chosen row", "selectionText=#a00000", "#f4ead8", "selectionText=#a00000 can hardly be seen");
        row("a tick", "accentText=#a00000", "#f4ead8", "accentText=#a00000 can hardly be seen on accent");
        row("the focus", "focusRing=#3a3c40", "#f4ead8", "focusRing=#3a3c40 can hardly be seen on graphite");
    }

    void coloursAreReadOrToldAndLeft()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, fault);
        QByteArrayList faults;
        Skin skin = firstSkin();
        readSkinText(skin, QString::fromLatin1("[Colours]\n" + text),
                     [&](const QString &told) { faults += told.toLatin1(); });
        QTEST(QColor::fromRgb(colourOf(skin, Colour::caption)).name().toLatin1(), "caption");
        QCOMPARE(faults.value(0).left(fault.size()), fault);
        QCOMPARE(faults.isEmpty(), fault.isEmpty());
        for (const Colour shown : {Colour::caption, Colour::captionDim})
            QVERIFY(contrast(colourOf(skin, shown), colourOf(skin, Colour::graphite)) >= leastContrast);
    }

    void picturesAreShownOrToldAndLeft_data()
    {
        const auto row = table<QString, QByteArray, QString>("file", "bytes", "fault"); // "" where it is shown.
        const QByteArray dark = shippedPicture(u"SongSearch.jpg"_s);
        const QByteArray light = shippedPicture(u"../enamel/SongSearch.jpg"_s);
        const QByteArray sharp = shippedPicture(u"../contrast/SongSearch@2x.jpg"_s);
        row("whole", u"SongSearch.jpg"_s, shippedPicture(u"../contrast/SongSearch.jpg"_s), QString());
        row("the sharper one alone", u"SongSearch@2x.jpg"_s, sharp, QString());
        row("absurd", u"SongSearch.jpg"_s, withSize(dark, 60000, 60000),
            u"is 60000 x 60000 pixels instead of 320 x 300"_s);
        row("a pixel too wide", u"SongSearch.jpg"_s, withSize(dark, 321, 300),
            u"is 321 x 300 pixels instead of 320 x 300"_s);
        row("cut", u"SongSearch.jpg"_s, dark.first(4000), u"is damaged"_s);
        row("empty", u"SongSearch.jpg"_s, QByteArray(), u"is damaged"_s);
        row("another format", u"SongSearch.jpg"_s, shippedPicture(u"bPlay.png"_s), u"is damaged"_s);
        row("huge", u"SongSearch.jpg"_s, QByteArray((1 << 23) + 1, 'x'), u"has 8388609 bytes, which are too many"_s);
        row("light under light texts", u"SongSearch.jpg"_s, light,
            u"leaves Label1, in the colour caption, hardly readable"_s);
        row("light under a plate", u"SongSearch.jpg"_s, light, QString());
    }

    void picturesAreShownOrToldAndLeft()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, fault);
        const Home home;
        const QRgb usual = Window().corner();
        home.add(u"mine"_s, u"skin.ini"_s, "[Skin]\nName=Mine");
        home.add(u"mine"_s, file, bytes);
        Home::wear(u"mine"_s);
        if (fault.isEmpty())
            QTest::failOnWarning(QRegularExpression(u"skin"_s));
        else
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(u"skin \"Mine\": %1 %2.*; it is not shown"_s.arg(file, fault)));
        Window shown;
        if (QByteArrayView(QTest::currentDataTag()).endsWith("plate"))
            shown.part.setPlate(); // With a ground of its own.
        QCOMPARE(shown.window.skinColourAt({3, 40}).rgb() == usual, !fault.isEmpty());
        QCOMPARE(shown.corner() == usual, !fault.isEmpty());
        Home::wear(u"mine"_s);
        QCOMPARE(shown.corner() == usual, !fault.isEmpty());
        QCOMPARE(complaints().size(), fault.isEmpty() ? 0 : 1);
        Home::wear(u"graphite"_s);
        QCOMPARE(shown.corner(), usual);
    }

    void aKeyAtRestStandsInForItsOtherStates()
    {
        const Home home;
        home.add(u"mine"_s, u"skin.ini"_s, {});
        home.add(u"mine"_s, u"bStop.png"_s, shippedPicture(u"../enamel/bStop.png"_s));
        Home::wear(u"mine"_s);
        QCOMPARE(pictureImage(Picture::StopHover), pictureImage(Picture::Stop));
        QVERIFY(pictureImage(Picture::NextHover) != pictureImage(Picture::Next));
    }

    // No pipe, device or folder is waited for or taken for a picture.
    void whatIsNoFileIsNoPicture()
    {
        const Home home;
        const QRgb usual = Window().corner();
        home.add(u"mine"_s, u"skin.ini"_s, QByteArray(65537, ' '));
        QTest::ignoreMessage(QtWarningMsg, "skin \"mine\": skin.ini cannot be read");
        const QByteArray pipe = QFile::encodeName(home.folder.hostPath() + u"/skins/mine/SongSearch.jpg"_s);
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        QVERIFY(QFile::link(u"/dev/zero"_s, home.folder.hostPath() + u"/skins/mine/SongSearch@2x.jpg"_s));
        Home::wear(u"mine"_s);
        for (const QString &file : {u"SongSearch.jpg"_s, u"SongSearch@2x.jpg"_s})
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"skin \"mine\": %1 is no file"_s.arg(file)));
        QCOMPARE(Window().corner(), usual);
    }

    // Dark texts on the dark pictures of the base: the windows are plain, each text on a ground of its own.
    void aSkinOfColoursAloneCanBeRead()
    {
        const Home home;
        home.add(u"paper"_s, u"skin.ini"_s,
                 "[Colours]\ngraphite=#ffffff\nface=#eeeeee\ncaption=#101010\ncaptionDim=#303030\nfocusRing=#af0000");
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"skin \"paper\": graphite/SongSearch.jpg leaves Label1"_s));
        Home::wear(u"paper"_s);
        Window shown;
        const QPoint place = places::SongSearch::Label1.topLeft();
        QCOMPARE(shown.corner(), qRgb(255, 255, 255));
        QCOMPARE(shown.pixel(place), qRgb(255, 255, 255));
        shown.text.setButton(true);
        QVERIFY(shown.pixel(place + QPoint(3, 9)) != qRgb(255, 255, 255));
        shown.text.setColour(Colour::displayText);
        QCOMPARE(shown.pixel(place), colourOf(currentSkin(), Colour::displayBackground));
        shown.part.setPicture(Picture::NoTagFrame);
        shown.text.setColour(Colour::caption);
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(u"skin \"paper\": graphite/frmNoTag.jpg leaves Label1"_s));
        QCOMPARE(shown.corner(), qRgb(255, 255, 255));
        QImage row(20, 20, QImage::Format_RGB32);
        QPainter painter(&row); // A ring in the colour of the row would be lost there.
        paintFocusRing(painter, row.rect(), Ring::Plain, true);
        QCOMPARE(row.pixel(3, 10), colourOf(currentSkin(), Colour::selectionText));
    }

    void aSkinTakesWhatItLacksFromItsBase()
    {
        const Home home;
        QStringEncoder wide(QStringConverter::Utf16, QStringConverter::Flag::WriteBom);
        const QString below = u"[Skin]\nName=Below\n[Colours]\nlistText=#ffeedd\n[Fonts]\nHand=Hack"_s;
        home.add(u"below"_s, u"skin.ini"_s, wide.encode(below));
        home.add(u"above"_s, u"skin.ini"_s,
                 "[Skin]\nName=Above \xe2\x80\xae\t!\nBasedOn=below\n[Colours]\ncaption=#ffffff\nkeyHover=#11223344");
        const Skin skin = readSkin(*findSkin(u"ABOVE"_s));
        QCOMPARE(skin.title, u"Above !"_s);
        QCOMPARE(colourOf(skin, Colour::caption), qRgb(255, 255, 255));
        QCOMPARE(colourOf(skin, Colour::listText), qRgb(255, 238, 221));
        QCOMPARE(colourOf(skin, Colour::accent), colourOf(firstSkin(), Colour::accent));
        QCOMPARE(skin.folders.size(), 3);
        QVERIFY(skin.folders[0].endsWith(u"/skins/above"_s) && skin.folders[1].endsWith(u"/skins/below"_s));
        wearSkin(skin);
        QCOMPARE(skinColour(Colour::keyHover), QColor(0x11, 0x22, 0x33, 0x44));
        QCOMPARE(fonts::font(fonts::Face::ComicSansMs, 13).families().value(0), u"Hack"_s);
    }

    void aBaseThatIsNotThereIsTold()
    {
        for (const QByteArray &base : {"nobody"_ba, "mine"_ba, "../skins/below"_ba}) {
            const Home home;
            home.add(u"below"_s, u"skin.ini"_s, {});
            home.add(u"mine"_s, u"skin.ini"_s, "[Skin]\nBasedOn=" + base + "\n[Colours]\ncaption=#ffffff");
            const QString told = u"skin \"mine\": there is no skin \"%1\" to base it on"_s;
            QTest::ignoreMessage(QtWarningMsg, qPrintable(told.arg(QLatin1StringView(base))));
            const Skin skin = readSkin(*findSkin(u"mine"_s));
            QCOMPARE(colourOf(skin, Colour::caption), qRgb(255, 255, 255));
            QCOMPARE(skin.folders.last(), firstSkinFolder());
        }
    }

    void theChosenSkinIsWornAtTheStart()
    {
        const Home home;
        const qsizetype shipped = skinsThere().size();
        QCOMPARE(skinAtStart({}).name, u"graphite"_s);
        keepChosenSkin(u"enamel"_s);
        QCOMPARE(skinAtStart({}).title, u"Enamel"_s);
        QCOMPARE(skinAtStart(u"High contrast"_s).name, u"contrast"_s);
        home.add(u"enamel"_s, u"skin.ini"_s, "[Skin]\nName=Not this one");
        QCOMPARE(skinAtStart({}).title, u"Enamel"_s);
        QCOMPARE(skinsThere().size(), shipped);
        qputenv("KIV_MP3_SKINS", "/");
        QCOMPARE(skinAtStart({}).name, u"graphite"_s);
        qunsetenv("KIV_MP3_SKINS");
        home.add(u"mine"_s, u"skin.ini"_s, {});
        const QString folder = home.folder.hostPath() + u"/skins/mine"_s;
        QCOMPARE(skinAtStart(folder + u'/').folders.value(0), folder);
        keepChosenSkin(u"go\x1bne"_s);
        QTest::ignoreMessage(QtWarningMsg, "skin \"gone\": it is not there any more");
        QCOMPARE(skinAtStart({}).name, u"graphite"_s);
        home.add(u"\u202E"_s, u"skin.ini"_s, {}); // Its title is empty.
        QVERIFY(!findSkin({}) && !findSkin(u"masters"_s) && !findSkin(folder + u"/skin.ini"_s));
    }

    // What is open shows it too: its colours and its fonts.
    void whatIsOpenWearsTheNewSkin()
    {
        const Home home;
        home.add(u"mine"_s, u"skin.ini"_s,
                 "[Colours]\ngraphite=#000080\ncaption=#00ff00\ndisplayText=#ffff00\n"
                 "listBackground=#200000\n[Fonts]\nSmall=Hack\nText=Hack");
        Window shown;
        TextBox time(&shown.window, {u"Text1"_s, u"Time"_s, {0, 0, 60, 20}});
        time.setDisplayOnly();
        time.setText(u"lll"_s);
        ListBox list(&shown.window, {u"List1"_s, u"A list"_s, {0, 20, 60, 60}});
        shown.text.setFont(fonts::font(fonts::Face::SmallFonts, 11));
        QMenu menu;
        menu.addAction(u"a command"_s);
        menu.popup({0, 0});
        Home::wear(u"mine"_s);
        QCoreApplication::processEvents();
        QCOMPARE(shown.text.font().families().value(0), u"Hack"_s);
        QCOMPARE(shown.text.font().pixelSize(), 11);
        QCOMPARE(menu.grab().toImage().pixel(menu.width() - 4, menu.height() / 2), qRgb(0, 0, 128));
        QVERIFY(shows(menu, qRgb(0, 255, 0)) && shows(time, qRgb(255, 255, 0)) && shows(list, qRgb(32, 0, 0)));
        QCOMPARE(menu.font().families().value(0), u"Hack"_s);
        Home::wear(u"graphite"_s);
        QCOMPARE(shown.text.font().families().value(0), u"Small Fonts"_s);
    }
};

QTEST_MAIN(SkinStoreTest)
#include "tst_skin_store.moc"
