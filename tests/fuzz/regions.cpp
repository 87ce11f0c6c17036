// SPDX-License-Identifier: GPL-3.0-or-later
// The shape of a picture, against the rule taken to the letter: pixel by pixel, rectangle by rectangle.
#include "fuzz/targets.h"
#include "settings/window_shape.h"

#include <array>
#include <optional>

namespace
{
QImage pictureOf(QByteArrayView bytes)
{
    constexpr std::array<QRgb, 4> colours = {0xFFFF00FF, 0xFF000000, 0x00000000, 0x00FFFFFF};
    constexpr int most = 16;
    const int width = bytes.isEmpty() ? 1 : static_cast<unsigned char>(bytes[0]) % most + 1;
    const int height = std::min<int>(static_cast<int>(bytes.size() - 1) / width, most);
    QImage picture(width, std::max(height, 0), QImage::Format_ARGB32);
    for (int i = 0; i < width * height; ++i)
        picture.setPixel(i % width, i / width, colours[static_cast<std::size_t>(bytes[i + 1] & 3)]);
    return picture;
}

QRegion byTheLetter(const QImage &picture)
{
    const auto colourAt = [&](int x, int y) { return qAlpha(picture.pixel(x, y)) == 0 ? 0 : picture.pixel(x, y); };
    QRegion total;
    std::optional<int> start;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool isKey = colourAt(x, y) == colourAt(0, 0);
            if (isKey && start)
                total += QRect(QPoint(std::min(*start, x), y), QPoint(std::max(*start, x) - 1, y));
            if (isKey)
                start.reset();
            else if (!start)
                start = x;
        }
    }
    return total;
}
} // namespace

void fuzz::region(QByteArrayView bytes)
{
    const QImage picture = pictureOf(bytes);
    const QRegion region = shapeRegion(picture);
    promise(region.subtracted(picture.rect()).isEmpty());
    promise(region.xored(byTheLetter(picture)).isEmpty());
}
