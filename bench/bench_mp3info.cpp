// SPDX-License-Identifier: GPL-3.0-or-later
// Files a CPU second from the page cache: the quick reader and Mp3Info, beside a tag library on the same 20,000 files.
#include "mp3info/mp3_info.h"
#include "mp3info/quick_header.h"
#include "platform/drives.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <mpegfile.h>
#include <tag.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{
constexpr int fileCount = 20'000;

// Some frames of 128 kbit/s, 44100 Hz and a tag, as a small song has them.
QByteArray songBytes()
{
    constexpr qsizetype frameSize = 417;
    QByteArray bytes;
    for (int frame = 0; frame < 14; ++frame)
        bytes += QByteArray::fromHex("fffb9064").leftJustified(frameSize, '\0');
    Id3v1Tag tag;
    tag.title = u"A song of some length"_s;
    tag.artist = u"Somebody"_s;
    tag.album = u"Songs"_s;
    tag.year = u"1999"_s;
    return bytes + buildTagBlock(tag);
}

struct Songs {
    QTemporaryDir folder{QDir::tempPath() + u"/bench-songs-XXXXXX"_s};
    std::vector<QString> programPaths;
    std::vector<QByteArray> hostPaths;

    Songs()
    {
        const QByteArray bytes = songBytes();
        for (int number = 0; number < fileCount; ++number) {
            const QString path = folder.filePath(u"Artist - Song %1.mp3"_s.arg(number));
            QFile file(path);
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                qFatal("cannot make %s", qPrintable(path));
            programPaths.push_back(programPath(path));
            hostPaths.push_back(QFile::encodeName(path));
        }
    }
};

const Songs &songs()
{
    static const Songs made;
    return made;
}

template<class Paths, class Read>
void readAll(benchmark::State &state, const Paths &paths, Read read)
{
    for (auto _ : state) {
        for (const auto &path : paths)
            read(path);
    }
    state.SetItemsProcessed(state.iterations() * fileCount);
}

void QuickReader(benchmark::State &state)
{
    readAll(state, songs().programPaths,
            [](const QString &path) { benchmark::DoNotOptimize(QuickMp3Header(path).length.size()); });
}

void Component(benchmark::State &state)
{
    Mp3Info info;
    readAll(state, songs().programPaths, [&info](const QString &path) {
        info.setFileName(path);
        if (info.kbits() != 128 || info.Title().isEmpty())
            qFatal("misread %s", qPrintable(path));
    });
}

void TagLibrary(benchmark::State &state)
{
    readAll(state, songs().hostPaths, [](const QByteArray &path) {
        const TagLib::MPEG::File file(path.constData(), true, TagLib::AudioProperties::Fast);
        if (file.audioProperties()->bitrate() != 128 || file.tag()->title().isEmpty())
            qFatal("misread %s", path.constData());
    });
}

// Each rate is the best of several rounds: other work on the machine only ever slows a round down.
constexpr int rounds = 5;
BENCHMARK(TagLibrary)->Unit(benchmark::kMillisecond)->Repetitions(rounds);
BENCHMARK(QuickReader)->Unit(benchmark::kMillisecond)->Repetitions(rounds);
BENCHMARK(Component)->Unit(benchmark::kMillisecond)->Repetitions(rounds);
} // namespace

BENCHMARK_MAIN();
