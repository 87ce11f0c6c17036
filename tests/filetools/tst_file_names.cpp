// SPDX-License-Identifier: GPL-3.0-or-later
// The names the formatter proposes: every rule of the cleaning, and what it must leave alone.
#include "base/window_place.h"
#include "filetools/tidy_names.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

class FileNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void proposalIsTidy_data()
    {
        const auto row = table<QString, QString>("name", "proposal");
        row("empty", u""_s, u""_s);
        row("hyphen alone", u"-"_s, u" - "_s);
        row("bracket last", u"x ("_s, u"X ("_s);
        row("no hyphen, tilde after capitals", u"my_song~live.mp3"_s, u"My Song-live.mp3"_s);
        row("hyphen first", u"-x.mp3"_s, u" - X.mp3"_s);
        row("two hyphens", u"01-Band-Song.mp3"_s, u"01-band - Song.mp3"_s);
        row("three hyphens split at the second", u"a-b - c-d.mp3"_s, u"A-b - C-d.mp3"_s);
        row("tabs are no blanks", u"a\t-\tb.mp3"_s, u"A\t - \tb.mp3"_s);
        row("spaced ampersand there", u"tom & jerry & co.mp3"_s, u"Tom & Jerry & Co.mp3"_s);
        row("first ampersand only", u"rock&roll&blues.mp3"_s, u"Rock & roll&blues.mp3"_s);
        row("ampersand is not trimmed", u"Rock &Roll"_s, u"Rock  & roll"_s);
        row("of needs its blank", u"best offer of.mp3"_s, u"Best Offer Of.mp3"_s);
        row("and", u"bread and butter.mp3"_s, u"Bread and Butter.mp3"_s);
        row("any word on and", u"sam andrews.mp3"_s, u"Sam andrews.mp3"_s);
        row("inner capitals", u"AC/DC MP3.MP3"_s, u"Ac/dc Mp3.mp3"_s);
        row("bracketed letter", u"song (live (remix)) (é)"_s, u"Song (Live (Remix)) (É)"_s);
        row("bracketed digit", u"x (1999)"_s, u"X (\u0011999)"_s);
        row("bracketed blank ends the word", u"x ( y z"_s, u"X ("_s + QChar(0) + u"y Z"_s);
        row("blank made by a bracket counts", u"x (@b"_s, u"X ( B"_s);
        row("code below 32 stays", u"x (\u001F> y"_s, u"X (\u001F> Y"_s);
        row("accents are no letters", u"ÉCOLE éTÉ.mp3"_s, u"école été.mp3"_s);
        row("beyond single bytes", u"ПЕСНЯ (東京) (Ж) \U0001F3B5A.mp3"_s, u"песня (東京) (ж) \U0001F3B5a.mp3"_s);
        row("bytes that are no text", u"A\xDCFF\x42 \xDCE9.mp3"_s, u"A\xDCFF\x62 \xDCE9.mp3"_s);
    }

    void proposalIsTidy()
    {
        QFETCH(QString, name);
        QTEST(proposeName(name).name, "proposal");
    }

    void songNameIsWhatFollowsTheFirstHyphen()
    {
        QCOMPARE(proposeName(u"Plain.mp3"_s).songName, std::nullopt);
        QCOMPARE(proposeName(u"01 -  Band-SONG.mp3"_s).songName, u"Band-SONG.mp3"_s);
    }

    void sidesSwapAroundTheFirstHyphen()
    {
        QCOMPARE(withSidesSwapped(u"Song.mp-3"_s), u"3 - Song.mp"_s);
        QCOMPARE(withSidesSwapped(u"Song.mp3"_s), std::nullopt);
        QCOMPARE(withSidesSwapped(u"Song-Some Band - Live.mp3"_s), u"Some Band - Live - Song.mp3"_s);
        QCOMPARE(withSidesSwapped(u" - X.mp3"_s), u"X - .mp3"_s);
        QCOMPARE(withSidesSwapped(u"No. 5 - J. S. Bach"_s), u"J. S. Bach - No. 5"_s);
    }

    void windowsFindTheirPlaces()
    {
        QCOMPARE(centredPlace({15360, 11520}, {6000, 3000}), QPointF(4680, 3972));
        QCOMPARE(centredPlace({300, 200}, {600, 400}), QPointF(-150, -105));

        const QRect screen(100, 0, 1000,
                           600); // A neighbour of 600 x 400 leaves room on its right, its left, or nowhere.
        QCOMPARE(besidePlace(screen, {100, 50, 600, 400}, {300, 500}, 4), QPoint(704, 50));
        QCOMPARE(besidePlace(screen, {420, 300, 600, 400}, {300, 500}, 4), QPoint(116, 100));
        QCOMPARE(besidePlace(screen, {350, 0, 600, 400}, {300, 500}, 4), QPoint(100, 0));
        QCOMPARE(besidePlace(screen, {250, 0, 600, 400}, {300, 500}, 4), QPoint(800, 0));

        const QPoint start(10, 10), there(40, 10);
        QVERIFY(staysBehind(start, start + QPoint(1, 1), there, 500));
        QVERIFY(!staysBehind(start, start, there, 100));    // It may be slow.
        QVERIFY(!staysBehind(start, {14, 10}, there, 500)); // It is on its way.
        QVERIFY(!staysBehind(start, start, {12, 10}, 500)); // The mouse has come back.
    }
};

QTEST_APPLESS_MAIN(FileNamesTest)
#include "tst_file_names.moc"
