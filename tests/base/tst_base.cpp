// SPDX-License-Identifier: GPL-3.0-or-later
// Names, numbers and times at their edges.
#include "base/name_list.h"
#include "base/names.h"
#include "base/numbers.h"
#include "base/texts.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

class BaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cutsPathsApart()
    {
        for (const auto &path : {u""_s, u"Song.mp3"_s, u"c:\\a\\"_s, u"c:\\a/b.mp3"_s})
            QCOMPARE(FolderFromPath(path) + FileNameFromPath(path), path);
        QCOMPARE(FileNameFromPath(u"Song.mp3"_s), u"Song.mp3"_s);
        QCOMPARE(FolderFromPath(u"c:\\a/b.mp3"_s), u"c:\\"_s); // A slash is no separator.
        QCOMPARE(withoutExtension(u"mp3"_s), QString());
    }

    void sortsNamesWithoutCase()
    {
        const QStringList sorted = u"A.mp3|a.mp3|B.mp3|long name 1.mp3|LONG NAME.mp3|Long name.mp3|long name.mp3a|"
                                   "Ä.mp3|ä.mp3|日.mp3|𝄞.mp3|\xDCFF.mp3|\xF05C.mp3"_s.split(u'|');
        for (int i = 0; i < sorted.size(); ++i) {
            NameList names(sorted.mid(i) + sorted.first(i));
            names.sort();
            QCOMPARE(names.toStringList(), sorted);
        }
    }

    void roundsHalvesToEvenAndHoldsTheRange()
    {
        for (const auto &[value, wide, narrow] : {
                 std::tuple(2.5, 2, 2),
                 {3.5, 4, 4},
                 {-0.5, 0, 0},
                 {1e18, 2147483647, 32767},
                 {-HUGE_VAL, -2147483647 - 1, -32768},
                 {std::nan(""), 0, 0},
             }) {
            QCOMPARE(roundHalfEven(value), wide);
            QCOMPARE(int(roundToInt16(value)), narrow);
        }
        QCOMPARE(wrapToInt32(5'000'000'000), 705'032'704);
    }

    void readsNumbersFromTexts()
    {
        for (const auto &text : {u""_s, u"Kbit 5"_s, u"-x"_s, u"."_s, u"٣"_s})
            QCOMPARE(numericValue(text), 0.0);
        QCOMPARE(numericValue(u"131 Kbit (VBR)"_s), 131.0);
        QCOMPARE(numericValue(u" 1 2.5.7"_s), 12.5);
        QCOMPARE(numericValue(u"-2-3"_s), -2.0);
        for (const auto &text : {u""_s, u"abc"_s, u"12a"_s, u"4294967296"_s})
            QCOMPARE(wholeNumber(text), std::nullopt);
        QCOMPARE(wholeNumber(u" -600 "_s), -600);
    }

    void formatsPlayTimes()
    {
        QCOMPARE(FormatPlayTime(3599), u"59:59"_s);
        QCOMPARE(FormatPlayTime(3600), u"1:00:00"_s);
        QCOMPARE(FormatPlayTime(-5), u"0:-5"_s);
        QCOMPARE(FormatPlayTime(-3665), u"-1:-1:-5"_s);
        QCOMPARE(FormatPlayTime(std::numeric_limits<std::int32_t>::min()), u"-596523:-14:-8"_s);
    }
};

QTEST_APPLESS_MAIN(BaseTest)
#include "tst_base.moc"
