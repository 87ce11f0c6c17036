// The total of the play times and the choice of the next entry.
#include "playlist/play_order.h"
#include "playlist/play_times.h"

#include <QRandomGenerator>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;

class TestPlayRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timesAreSummed_data()
    {
        QTest::addColumn<QString>("times");
        QTest::addColumn<int>("seconds");
        QTest::addColumn<bool>("fails");
        QTest::newRow("empty list") << u""_s << 0 << false;
        QTest::newRow("odd length adds the one before") << u"3:05 x 1:00"_s << 430 << false;
        QTest::newRow("odd length at first") << u"x 1:02:03 1:00"_s << 60 << false;
        QTest::newRow("signs") << u"+1:-5"_s << 55 << false;
        QTest::newRow("no colon") << u"12345"_s << 12 * 60 + 45 << false;
        QTest::newRow("minutes are no number") << u"1:00 x:00 5:00"_s << 60 << true;
        QTest::newRow("seconds are no number") << u"1:00 12:x0"_s << 60 << true;
    }

    void timesAreSummed()
    {
        QFETCH(QString, times);
        const PlayTimeSum sum = addPlayTimes(times.split(u' '));
        QTEST(sum.seconds, "seconds");
        QTEST(sum.error.has_value(), "fails");
        QCOMPARE(sum.error.value_or(ErrorRecord()).number, sum.error ? 13 : 0);
    }

    void theTotalStaysWithin32Bits()
    {
        QCOMPARE(addPlayTimes({u"99:99"_s, u"99:99"_s}, 2'147'483'000).seconds, 2'147'483'647);
    }

    void entriesFollowInOrder()
    {
        QCOMPARE(nextInOrder(0, 3, false), 1);
        QCOMPARE(nextInOrder(2, 3, true), 0);
        QCOMPARE(nextInOrder(-1, 3, false), 0);
        QCOMPARE(nextInOrder(0, 3, true), 0);
        QCOMPARE(nextInOrder(0, 1, true), 0);
    }

    void randomOrderLeavesOutWhatItRemembers()
    {
        QRandomGenerator generator(7);
        RandomOrder order([&generator] { return generator.generateDouble(); });
        std::set<int> seen;
        QList<int> drawn;
        for (int i = 0; i < 500; ++i) {
            const auto next = order.next(20);
            QVERIFY(next && *next > 0 && *next < 19);
            // Rejected draws count too and may move the place to write to: only the draw before is remembered for sure.
            QVERIFY(drawn.isEmpty() || drawn.last() != *next);
            drawn += *next;
            seen.insert(*next);
        }
        QCOMPARE(seen.size(), 18U);
    }

    void nothingLeftToDrawEndsTheDraw()
    {
        QRandomGenerator generator(7);
        RandomOrder order([&generator] { return generator.generateDouble(); });
        for (const int count : {0, 1, 2})
            QVERIFY(!order.next(count));
        QCOMPARE(order.next(3), 1);
        for (int i = 0; i < 100; ++i) // Far past what a 16-bit counter of draws holds.
            QVERIFY(!order.next(3));
        QCOMPARE(order.next(4), 2);
        RandomOrder stuck([] { return 1.0; });
        QCOMPARE(stuck.next(50), 48);
        QVERIFY(!stuck.next(50));
    }

    void longListsAreReachedToTheEnd()
    {
        RandomOrder order([] { return 0.99999; });
        QCOMPARE(order.next(100'001), 99'999);
    }
};

QTEST_MAIN(TestPlayRules)
#include "tst_play_rules.moc"
