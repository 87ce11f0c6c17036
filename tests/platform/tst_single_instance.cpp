// SPDX-License-Identifier: GPL-3.0-or-later
// One player a user: the second one knows, and nothing a dead one leaves behind keeps the next one away.
#include "platform/desktop.h"
#include "platform/processes.h"
#include "support/crash_points.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
// Runs in another process that ends without a farewell.
bool anotherFindsOneRunning()
{
    return runWithFault(Fault::Death, 1000, [] {
               const auto *left = new SingleInstance;
               if (!left->isPreviousRunning())
                   std::abort();
           }) == Fate::Spared;
}
} // namespace

class SingleInstanceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstOneHoldsTheLock()
    {
        {
            const SingleInstance first;
            QVERIFY(!first.isPreviousRunning() && anotherFindsOneRunning());
            QVERIFY(SingleInstance().isPreviousRunning()); // The second one's end took nothing away.
        }
        QVERIFY(!SingleInstance().isPreviousRunning());
    }

    void whatADeadOneLeftIsNoHindrance()
    {
        QVERIFY(!anotherFindsOneRunning());
        QFile lock(runtimeFolder() + u"/kiv-mp3.lock"_s);
        QVERIFY(lock.exists());
        QVERIFY(!SingleInstance().isPreviousRunning());
        for (const char *damage : {"", "garbage", "1\n"}) {
            QVERIFY(lock.open(QIODevice::WriteOnly) && lock.write(damage) >= 0);
            lock.close();
            QVERIFY2(!SingleInstance().isPreviousRunning(), damage);
        }
    }

    void playsWhereNoLockCanBe()
    {
        qputenv("XDG_RUNTIME_DIR", "/proc");
        QVERIFY(!SingleInstance().isPreviousRunning());
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "tst_single_instance.moc"
