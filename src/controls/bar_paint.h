// SPDX-License-Identifier: GPL-3.0-or-later
// Sliders and the bars of lists: where their parts are, and what they look like. Both are a groove with a thumb in it,
// without arrows; a slider's groove is on the skin, and its thumb is a knob that keeps its length.
#pragma once

#include <QStyle>

class QPainter;
class QStyleOptionSlider;

inline constexpr int shortestThumb = 28;

/// The place of a part of the bar; empty for one that it has not.
QRect barPart(const QStyleOptionSlider &bar, QStyle::SubControl part, bool isSlider);

/// Paints all of it, and the ring of the focus.
void paintBar(QPainter &painter, const QStyleOptionSlider &bar, bool isSlider);
