// SPDX-License-Identifier: GPL-3.0-or-later
// A keystroke in the search window among 100,000 songs: the search alone, and with the rows handed to the list. The
// budget is 16 ms.
#include "controls/folder_lists.h"
#include "playlist/song_match.h"

#include <QApplication>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int songCount = 100'000;
const char *const texts[] = {"a", "ar", "song 99999", "nowhere at all"};

QStringList manySongs()
{
    QStringList names;
    for (int i = 0; i < songCount; ++i)
        names += u"An Artist of Some Fame - The Song %1.mp3"_s.arg(i);
    return names;
}

void prepareNames(benchmark::State &state)
{
    const QStringList names = manySongs();
    for (auto _ : state)
        benchmark::DoNotOptimize(SongNames(names));
}
BENCHMARK(prepareNames)->Unit(benchmark::kMillisecond);

// What the search window does on each change of its text.
void keystroke(benchmark::State &state)
{
    const SongNames songs(manySongs());
    const QString text = QString::fromLatin1(texts[state.range(0)]);
    ListBox list(nullptr, {u"List1"_s, {}, QRect(0, 0, 288, 208)});
    list.show();
    QApplication::processEvents();
    std::vector<SongMatch> matches;
    list.setShownForm([&](int row, const QString &name) {
        return capitalised(name, matches[static_cast<std::size_t>(row)].position, text.size());
    });
    for (auto _ : state) {
        matches = songs.search(text);
        QStringList rows;
        for (const SongMatch &match : matches)
            rows += songs.names()[match.index];
        list.setItems(rows);
        QApplication::processEvents(); // The list is painted, too.
    }
    state.SetLabel(texts[state.range(0)]);
    state.counters["matches"] = static_cast<double>(matches.size());
}
BENCHMARK(keystroke)->DenseRange(0, std::ssize(texts) - 1)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
