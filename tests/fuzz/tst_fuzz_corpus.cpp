// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds every file of the fuzzers' corpus, so that what was once found is tried on every test run.
#include "fuzz/targets.h"
#include "support/table.h"

#include <QDir>

using Target = void (*)(QByteArrayView);

class FuzzCorpusTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void corpusIsRead_data()
    {
        const auto row = table<Target>("target");
        row("song", &fuzz::song);
        row("list", &fuzz::list);
        row("settings", &fuzz::settings);
        row("name", &fuzz::name);
        row("path", &fuzz::path);
        row("region", &fuzz::region);
        row("archive", &fuzz::archive);
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
