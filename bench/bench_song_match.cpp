// SPDX-License-Identifier: GPL-3.0-or-later
// A keystroke in the search window among a million songs, the list painted; and what comes before: sorting the names of
// a folder, and making them ready to search. The budget of a keystroke is 16 ms.
#include "controls/list_box.h"
#include "playlist/song_match.h"

#include <QApplication>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int songCount = 1'000'000;
const char *const texts[] = {"a", "ar", "song 999999", "nowhere at all"};

NameList manySongs()
{
    NameList names;
    for (int i = 0; i < songCount; ++i) // Not in the order of the alphabet.
        names += u"An Artist of Some Fame - The Song %1.mp3"_s.arg(i * 7919LL % songCount);
    return names;
}

void sortNames(benchmark::State &state)
{
    const NameList names = manySongs();
    for (auto _ : state) {
        NameList sorted = names;
        sorted.sort();
        benchmark::DoNotOptimize(sorted);
    }
}
BENCHMARK(sortNames)->Unit(benchmark::kMillisecond);

void prepareNames(benchmark::State &state)
{
    const NameList names = manySongs();
    for (auto _ : state)
        benchmark::DoNotOptimize(SongNames(names));
}
BENCHMARK(prepareNames)->Unit(benchmark::kMillisecond);

// What the search window does on a change of its text, here from another one: no shorter text was searched before.
void keystroke(benchmark::State &state)
{
    SongNames songs(manySongs());
    const QString text = QString::fromLatin1(texts[state.range(0)]);
    ListBox list(nullptr, {u"List1"_s, {}, QRect(0, 0, 288, 208)});
    list.show();
    QApplication::processEvents();
    std::vector<SongMatch> matches;
    const auto search = [&](const QString &wanted) {
        songs.search(wanted, matches);
        list.setRows(static_cast<int>(matches.size()));
    };
    list.setShownForm([&](int row, const QString &) {
        return shownResult(songs.names()[matches[static_cast<std::size_t>(row)].row], text);
    });
    for (auto _ : state) {
        search(text);
        QApplication::processEvents(); // The list is painted, too.
        state.PauseTiming();
        search(u"another text"_s);
        state.ResumeTiming();
    }
    search(text);
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
