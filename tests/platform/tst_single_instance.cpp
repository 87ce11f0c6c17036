// SPDX-License-Identifier: GPL-3.0-or-later
// One player a user: the second one knows, and nothing a dead one leaves behind keeps the next one away.
#include "platform/desktop.h"
#include "platform/processes.h"
#include "support/crash_points.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
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
        QVERIFY(lock.open(QIODevice::WriteOnly) && lock.write("1\nkiv-mp3\nanother host\n") > 0);
        lock.close();
        QVERIFY(!SingleInstance().isPreviousRunning());
        QVERIFY(lock.remove() && QDir().mkdir(lock.fileName()));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"kiv-mp3.lock.*: Is a directory$"_s));
        QVERIFY(!SingleInstance().isPreviousRunning());
        QVERIFY(QDir().rmdir(lock.fileName()));
    }

    void nobodyElseCanPlantALock()
    {
        const QTemporaryDir common;
        qputenv("TMPDIR", QFile::encodeName(common.path()));
        const QByteArray session = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("XDG_RUNTIME_DIR");
        const QString own = runtimeFolder();
        QVERIFY(own.startsWith(common.path()));
        QVERIFY(QFile::setPermissions(own, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::WriteOther));
        QVERIFY(runtimeFolder().isEmpty());
        QVERIFY(QDir().rmdir(own) && QFile::link(QFile::decodeName(session), own) && runtimeFolder().isEmpty());
        QTest::ignoreMessage(QtWarningMsg, "no folder of your own for the lock that keeps a second player away");
        QVERIFY(!SingleInstance().isPreviousRunning());
        qputenv("XDG_RUNTIME_DIR", session);
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "tst_single_instance.moc"
