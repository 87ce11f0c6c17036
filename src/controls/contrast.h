// SPDX-License-Identifier: GPL-3.0-or-later
// How well the colours of a skin are told apart, and which stand in for those that are not.
#pragma once

#include "controls/skin.h"

/// How much lighter the lighter of two colours is, as people see it: from 1 to 21, by the contrast ratio of the Web
/// Content Accessibility Guidelines. Opacity does not count.
double contrast(QRgb first, QRgb second);

/// A text with less on its ground is not shown in its colour.
inline constexpr double leastContrast = 3.0;

/// What a text of that colour is written on, unless a picture says otherwise; the panel's colour for all that is no
/// colour of a text.
Colour groundOf(Colour text);

/// Changes each colour of a skin that could hardly be seen on its ground into one that can: where it serves, the one
/// from before, which the skin has from its base. fault is called with a line about each colour of the skin's own.
void makeSeen(Skin &skin, const Skin &before, const TellFault &fault);
