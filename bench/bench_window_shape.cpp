// SPDX-License-Identifier: GPL-3.0-or-later
// Picture to region at 1000 x 1000 pixels: the budget is 5 ms.
#include "settings/window_shape.h"

#include <QPainter>

#include <benchmark/benchmark.h>

namespace
{
QImage blank()
{
    QImage picture(1000, 1000, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    return picture;
}

QImage disc()
{
    QImage picture = blank();
    QPainter painter(&picture);
    painter.setBrush(Qt::black);
    painter.drawEllipse(20, 20, 960, 960);
    return picture;
}

// Every second pixel: as many rectangles as a picture can give.
QImage checkerboard()
{
    QImage picture = blank();
    for (int y = 0; y < 1000; ++y) {
        for (int x = (y + 1) % 2; x < 1000; x += 2)
            picture.setPixel(x, y, 0xFF000000);
    }
    return picture;
}

void measure(benchmark::State &state, const QImage &picture)
{
    for (auto turn : state)
        benchmark::DoNotOptimize(shapeRegion(picture));
}
} // namespace

BENCHMARK_CAPTURE(measure, shape_disc, disc())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(measure, shape_checkerboard, checkerboard())->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
