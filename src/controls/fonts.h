// SPDX-License-Identifier: GPL-3.0-or-later
// The fonts of the design by name, each with a family that is installed with the player.
#pragma once

#include <QFont>

namespace fonts
{
enum class Face { Arial, SmallFonts, MatisseItc, ComicSansMs };

/// The font of a face in logical pixels.
QFont font(Face face, int pixels, QFont::Weight weight = QFont::Normal);
} // namespace fonts
