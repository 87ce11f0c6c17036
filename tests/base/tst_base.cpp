// Names, numbers and times at their edges.
#include "base/names.h"
#include "base/numbers.h"
#include "base/play_time.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

class BaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cuts_paths_apart_data();
    void cuts_paths_apart();
    void sorts_names_without_case();
    void rounds_halves_to_even_and_holds_the_range_data();
    void rounds_halves_to_even_and_holds_the_range();
    void reads_the_number_a_text_begins_with_data();
    void reads_the_number_a_text_begins_with();
    void takes_a_whole_number_or_nothing_data();
    void takes_a_whole_number_or_nothing();
    void formats_play_times_data();
    void formats_play_times();
};

void BaseTest::cuts_paths_apart_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("bareName");
    QTest::newRow("empty") << u""_s << u""_s << u""_s << u""_s;
    QTest::newRow("no backslash") << u"Song.mp3"_s << u""_s << u"Song.mp3"_s << u"Song"_s;
    QTest::newRow("folder") << u"c:\\a\\"_s << u"c:\\a\\"_s << u""_s << u""_s;
    QTest::newRow("a slash is no separator") << u"c:\\a/b.mp3"_s << u"c:\\"_s << u"a/b.mp3"_s << u"a/b"_s;
    QTest::newRow("shorter than an ending") << u"\\mp3"_s << u"\\"_s << u"mp3"_s << u""_s;
}

void BaseTest::cuts_paths_apart()
{
    QFETCH(QString, path);
    QTEST(FolderFromPath(path), "folder");
    QTEST(FileNameFromPath(path), "name");
    QTEST(withoutExtension(FileNameFromPath(path)), "bareName");
}

void BaseTest::sorts_names_without_case()
{
    const QStringList sorted = {u"A.mp3"_s, u"a.mp3"_s, u"B.mp3"_s, u"Z.mp3"_s, u"Ä.mp3"_s, u"ä.mp3"_s, u"日.mp3"_s};
    QStringList names = sorted;
    for (int i = 0; i < names.size(); ++i) {
        names.move(0, names.size() - 1 - i % 3); // Another order each time, always the same result.
        QStringList shuffled = names;
        sortNames(shuffled);
        QCOMPARE(shuffled, sorted);
    }
}

void BaseTest::rounds_halves_to_even_and_holds_the_range_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<std::int32_t>("wide");
    QTest::addColumn<std::int16_t>("narrow");
    const auto row = [](const char *name, double value, std::int32_t wide, std::int16_t narrow) {
        QTest::newRow(name) << value << wide << narrow;
    };
    row("half above an even number", 2.5, 2, 2);
    row("half above an odd number", 3.5, 4, 4);
    row("negative half", -0.5, 0, 0);
    row("just over a half", 2.5000001, 3, 3);
    row("longer than nine hours", 40000.4, 40000, 32767);
    row("below 16 bits", -40000, -40000, -32768);
    row("beyond 32 bits", 1e18, 2147483647, 32767);
    row("infinite", -std::numeric_limits<double>::infinity(), -2147483647 - 1, -32768);
    row("no number", std::nan(""), 0, 0);
}

void BaseTest::rounds_halves_to_even_and_holds_the_range()
{
    QFETCH(double, value);
    QTEST(roundHalfEven(value), "wide");
    QTEST(roundToInt16(value), "narrow");
    QCOMPARE(wrapToInt32(5'000'000'000), 705'032'704);
    QCOMPARE(wrapToInt32(0x8000'0000), std::numeric_limits<std::int32_t>::min());
}

void BaseTest::reads_the_number_a_text_begins_with_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("empty") << u""_s << 0.0;
    QTest::newRow("none") << u"Kbit 5"_s << 0.0;
    QTest::newRow("a sign alone") << u"-x"_s << 0.0;
    QTest::newRow("a point alone") << u"."_s << 0.0;
    QTest::newRow("with a unit") << u"131 Kbit (VBR)"_s << 131.0;
    QTest::newRow("blanks inside") << u" 1 2 3"_s << 123.0;
    QTest::newRow("a second point ends it") << u"1.5.7"_s << 1.5;
    QTest::newRow("a sign inside ends it") << u"-2-3"_s << -2.0;
    QTest::newRow("other digits") << u"٣"_s << 0.0;
}

void BaseTest::reads_the_number_a_text_begins_with()
{
    QFETCH(QString, text);
    QTEST(numericValue(text), "number");
}

void BaseTest::takes_a_whole_number_or_nothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<std::int32_t>("number");
    QTest::newRow("blanks around") << u" -600 "_s << true << -600;
    QTest::newRow("empty") << u""_s << false << 0;
    QTest::newRow("words") << u"abc"_s << false << 0;
    QTest::newRow("number and words") << u"12a"_s << false << 0;
    QTest::newRow("beyond 32 bits") << u"4294967296"_s << false << 0;
}

void BaseTest::takes_a_whole_number_or_nothing()
{
    QFETCH(QString, text);
    QTEST(wholeNumber(text).has_value(), "isNumber");
    QTEST(wholeNumber(text).value_or(0), "number");
}

void BaseTest::formats_play_times_data()
{
    QTest::addColumn<std::int32_t>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0 << u"0:00"_s;
    QTest::newRow("a minute short of an hour") << 3599 << u"59:59"_s;
    QTest::newRow("an hour") << 3600 << u"1:00:00"_s;
    QTest::newRow("many hours") << 363'905 << u"101:05:05"_s;
    QTest::newRow("negative seconds") << -5 << u"0:-5"_s;
    QTest::newRow("negative in every place") << -3665 << u"-1:-1:-5"_s;
    QTest::newRow("the lowest number") << std::numeric_limits<std::int32_t>::min() << u"-596523:-14:-8"_s;
}

void BaseTest::formats_play_times()
{
    QFETCH(std::int32_t, seconds);
    QTEST(FormatPlayTime(seconds), "text");
}

QTEST_APPLESS_MAIN(BaseTest)
#include "tst_base.moc"
