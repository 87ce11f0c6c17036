// What the program's arguments are taken for: a song whose name looks like an option must still play.
#include "app/start_options.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Wish = StartOptions::Wish;

class StartOptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arguments_are_sorted_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<Wish>("wish");
        QTest::addColumn<QByteArray>("files");
        QTest::addColumn<QByteArray>("toolkit");
        QTest::newRow("none") << QByteArray() << Wish::Play << QByteArray() << QByteArray();
        QTest::newRow("songs") << "a.mp3|-|b c.mp3"_ba << Wish::Play << "a.mp3|-|b c.mp3"_ba << QByteArray();
        QTest::newRow("song like an option") << "-there.mp3"_ba << Wish::Play << "-there.mp3"_ba << QByteArray();
        QTest::newRow("no such song") << "-x.mp3"_ba << Wish::Refuse << QByteArray() << QByteArray();
        QTest::newRow("unknown option") << "--there|a|--x"_ba << Wish::Refuse << "--there|a"_ba << QByteArray();
        QTest::newRow("files only") << "--|-x|--help|-style"_ba << Wish::Play << "-x|--help|-style"_ba << QByteArray();
        QTest::newRow("help comes first") << "-x|a.mp3|-h"_ba << Wish::ShowHelp << QByteArray() << QByteArray();
        QTest::newRow("version") << "-platform|x|--version"_ba << Wish::ShowVersion << QByteArray() << QByteArray();
        QTest::newRow("toolkit") << "-platform|--help|a|--style=x|-reverse|-icon"_ba << Wish::Play << "a"_ba
                                 << "-platform|--help|--style=x|-reverse|-icon"_ba;
        QTest::newRow("nearly toolkit") << "-styles=x"_ba << Wish::Refuse << QByteArray() << QByteArray();
    }

    void arguments_are_sorted()
    {
        QFETCH(QByteArray, arguments);
        QList<QByteArray> words = arguments.isEmpty() ? QList<QByteArray>() : arguments.split('|');
        words.prepend("kiv-mp3");
        std::vector<char *> pointers;
        for (QByteArray &word : words)
            pointers.push_back(word.data());
        const StartOptions options =
            readStartOptions(pointers, [](const QByteArray &name) { return name.contains("there"); });
        QByteArrayList toolkit(options.toolkit.begin(), options.toolkit.end());
        QTEST(options.wish, "wish");
        QTEST(QByteArrayList(options.files).join('|'), "files");
        QTEST(toolkit.mid(1).join('|'), "toolkit");
    }
};

QTEST_APPLESS_MAIN(StartOptionsTest)
#include "tst_start_options.moc"
