// SPDX-License-Identifier: GPL-3.0-or-later
// What the program's arguments are taken for: a song whose name looks like an option must still play.
#include "app/start_options.h"
#include "support/table.h"

#include <map>

using namespace Qt::StringLiterals;
using Action = StartOptions::Action;

class StartOptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsAreSorted_data()
    {
        // The outcome: the action, the files, the toolkit's own, the skin.
        const auto row = table<QByteArray, QByteArray>("arguments", "outcome");
        row("none", "", "play  ");
        row("song", "a b.mp3", "play a b.mp3 ");
        row("two songs", "a.mp3|b.mp3", "refuse b.mp3 ");
        row("a dash is a name", "-", "play - ");
        row("an empty name", "a|", "refuse  ");
        row("song like an option", "-there.mp3", "play -there.mp3 ");
        row("no such song", "-x.mp3", "refuse  ");
        row("unknown option", "--there|--x", "refuse --there ");
        row("files only", "--|--help", "play --help ");
        row("help comes first", "-x|a.mp3|-h", "help  ");
        row("version", "-platform|x|--version", "version  ");
        row("service", "--service", "serve  ");
        row("no service", "-x|--service", "refuse  ");
        row("toolkit", "-platform|--help|a|--style=x|-reverse|-icon",
            "play a -platform|--help|--style=x|-reverse|-icon");
        row("skin", "--skin|dark red|a", "play a  in dark red");
        row("skin beside its option", "--skin=b", "play   in b");
        row("no skin", "a|--skin", "refuse a ");
        row("an empty skin", "--skin=|a", "refuse a ");
        row("skins", "-x|--skins", "skins  ");
        row("nearly toolkit", "-styles=x", "refuse  ");
    }

    void argumentsAreSorted()
    {
        QFETCH(QByteArray, arguments);
        QList<QByteArray> words = arguments.isEmpty() ? QList<QByteArray>() : arguments.split('|');
        words.prepend("kiv-mp3");
        std::vector<char *> pointers;
        for (QByteArray &word : words)
            pointers.push_back(word.data());
        const StartOptions options =
            readStartOptions(pointers, [](const QByteArray &name) { return name.contains("there"); });
        const QByteArrayList toolkit(options.toolkit.begin(), options.toolkit.end());
        const std::map<Action, QByteArray> actions = {{Action::Play, "play"},           {Action::Serve, "serve"},
                                                      {Action::Refuse, "refuse"},       {Action::ShowHelp, "help"},
                                                      {Action::ShowVersion, "version"}, {Action::ListSkins, "skins"}};
        const QByteArray skin = options.skin.isEmpty() ? "" : " in " + options.skin;
        QTEST(actions.at(options.action) + ' ' + options.file.value_or("") + ' ' + toolkit.mid(1).join('|') + skin,
              "outcome");
    }
};

QTEST_APPLESS_MAIN(StartOptionsTest)
#include "tst_start_options.moc"
