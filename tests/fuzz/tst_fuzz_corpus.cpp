// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds every file of the fuzzers' corpus, so that what was once found is tried on every test run.
#include "fuzz/targets.h"

#include <QDir>
#include <QTest>

using Target = void (*)(QByteArrayView);

class FuzzCorpusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void corpusIsRead_data()
    {
        QTest::addColumn<Target>("target");
        QTest::newRow("song") << &fuzz::song;
        QTest::newRow("list") << &fuzz::list;
        QTest::newRow("settings") << &fuzz::settings;
        QTest::newRow("name") << &fuzz::name;
        QTest::newRow("path") << &fuzz::path;
        QTest::newRow("region") << &fuzz::region;
        QTest::newRow("archive") << &fuzz::archive;
    }

    void corpusIsRead()
    {
        QFETCH(Target, target);
        const QDir corpus(QStringLiteral(KIV_FUZZ_CORPUS) + u'/' + QString::fromLatin1(QTest::currentDataTag()));
        const QStringList names = corpus.entryList(QDir::Files);
        QVERIFY(names.size() > 5);
        for (const QString &name : names) {
            QFile file(corpus.filePath(name));
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(name));
            target(file.readAll());
        }
    }
};

QTEST_APPLESS_MAIN(FuzzCorpusTest)
#include "tst_fuzz_corpus.moc"
