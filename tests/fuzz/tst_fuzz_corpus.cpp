// Feeds every file of the fuzzer's corpus, so that what was once found is tried on every test run.
#include "fuzz/read_bytes.h"

#include <QDir>
#include <QTest>

class TestFuzzCorpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void corpusIsRead()
    {
        const QDir corpus(QStringLiteral(KIV_FUZZ_CORPUS));
        const QStringList names = corpus.entryList(QDir::Files);
        QVERIFY(names.size() > 20);
        for (const QString &name : names) {
            QFile file(corpus.filePath(name));
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(name));
            const QByteArray bytes = file.readAll();
            readBytes(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                      static_cast<std::size_t>(bytes.size()));
        }
    }
};

QTEST_APPLESS_MAIN(TestFuzzCorpus)
#include "tst_fuzz_corpus.moc"
