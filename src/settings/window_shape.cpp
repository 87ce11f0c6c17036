// SPDX-License-Identifier: GPL-3.0-or-later
// Rows are scanned once; their spans become bands of rectangles at once, so that the region is built without
// uniting a million single ones.
#include "settings/window_shape.h"

#include <algorithm>
#include <vector>

namespace
{
// Columns from left up to, not including, right.
struct Span {
    int left;
    int right;
    bool operator==(const Span &) const = default;
};

using Row = std::vector<Span>;

// Recognises the key colour. Pixels that are fully transparent are one colour, whatever lies under it.
class KeyColour
{
public:
    explicit KeyColour(QRgb pixel) : m_mask(qAlpha(pixel) == 0 ? 0xFF000000 : 0xFFFFFFFF), m_key(pixel & m_mask) {}
    bool matches(QRgb pixel) const { return (pixel & m_mask) == m_key; }

private:
    QRgb m_mask;
    QRgb m_key;
};

// Sorts the spans and joins those that touch. Only a run carried over from the row above can break their order.
void tidy(Row &row)
{
    const auto touch = [](Span a, Span b) { return a.right >= b.left; };
    if (std::adjacent_find(row.begin(), row.end(), touch) == row.end())
        return;
    std::sort(row.begin(), row.end(), [](Span a, Span b) { return a.left < b.left; });
    std::size_t last = 0;
    for (const Span span : row) {
        if (span.left <= row[last].right)
            row[last].right = std::max(row[last].right, span.right);
        else
            row[++last] = span;
    }
    row.resize(last + 1);
}

constexpr int noRun = -1;

// Collects the spans of one row. openRun is the first column of a run that the row before did not close.
void scanRow(const QRgb *pixels, int width, KeyColour key, int &openRun, Row &row)
{
    row.clear();
    for (int x = 0; x < width; ++x) {
        const bool isKey = key.matches(pixels[x]);
        if (isKey != (openRun != noRun))
            continue;
        if (!isKey) {
            openRun = x;
            continue;
        }
        if (x != openRun)
            row.push_back({std::min(openRun, x), std::max(openRun, x)});
        openRun = noRun;
    }
}

// Rows of equal spans, one below the other, become higher rectangles.
class Bands
{
public:
    explicit Bands(std::size_t most) { m_rects.reserve(most); }

    void add(int y, Row &row)
    {
        tidy(row);
        if (row == m_last && !row.empty()) {
            for (auto rect = m_rects.end() - static_cast<std::ptrdiff_t>(row.size()); rect != m_rects.end(); ++rect)
                rect->setBottom(y);
        } else {
            for (const Span span : row)
                m_rects.emplace_back(span.left, y, span.right - span.left, 1);
            m_last.swap(row);
        }
    }

    QRegion region() const
    {
        QRegion region;
        region.setRects(m_rects.data(), static_cast<int>(m_rects.size()));
        return region;
    }

private:
    std::vector<QRect> m_rects;
    Row m_last;
};

// At most so many rectangles there will be. Counting is cheap, growing an array of a million is not.
std::size_t countRuns(const QImage &picture, KeyColour key)
{
    const int width = picture.width();
    std::size_t runs = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = 1; x < width; ++x)
            runs += key.matches(pixels[x]) && !key.matches(pixels[x - 1]);
        runs += key.matches(pixels[0]);
    }
    return runs;
}

bool isPlain32Bit(const QImage &picture)
{
    return picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32;
}
} // namespace

QRegion shapeRegion(const QImage &picture)
{
    if (picture.isNull())
        return {};
    const QImage plain = isPlain32Bit(picture) ? picture : picture.convertToFormat(QImage::Format_ARGB32);
    const KeyColour key(plain.pixel(0, 0));
    Bands bands(countRuns(plain, key));
    Row row;
    int openRun = noRun;
    for (int y = 0; y < plain.height(); ++y) {
        scanRow(reinterpret_cast<const QRgb *>(plain.constScanLine(y)), plain.width(), key, openRun, row);
        bands.add(y, row);
    }
    return bands.region();
}
