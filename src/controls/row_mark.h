// SPDX-License-Identifier: GPL-3.0-or-later
// The mark before the text of a row: the signs of the keys Play and Pause, small.
#pragma once

class QPainter;
class QRect;

/// The song of the row plays, or is paused.
enum class RowMark { None, Playing, Paused };

void paintRowMark(QPainter &painter, const QRect &row, RowMark mark, bool isChosen);
