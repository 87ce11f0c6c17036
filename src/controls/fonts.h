// SPDX-License-Identifier: GPL-3.0-or-later
// The fonts of the design by name: the family that the skin names, else the design's, else one that is installed with
// the player.
#pragma once

#include "controls/skin.h"

#include <QFont>

namespace fonts
{
using Face = SkinFace;

/// The font of a face in logical pixels.
QFont font(Face face, int pixels, QFont::Weight weight = QFont::Normal);

/// A font that font() has given, in the family that the skin of now names for its face; any other font as it is.
QFont inSkin(const QFont &font);
} // namespace fonts
