// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds every file of the fuzzer's corpus, so that what was once found is tried on every test run.
#include <QDir>
#include <QTest>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

class FuzzCorpusTest : public QObject
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
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                                   static_cast<std::size_t>(bytes.size()));
        }
    }
};

QTEST_APPLESS_MAIN(FuzzCorpusTest)
#include "tst_fuzz_corpus.moc"
