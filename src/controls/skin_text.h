// SPDX-License-Identifier: GPL-3.0-or-later
// The text file of a skin, skin.ini: its title, its colours, its families of fonts, the skin it is based on.
#pragma once

#include "controls/skin.h"

#include <functional>

/// How much lighter the lighter of two colours is, as people see it: from 1 to 21, by the contrast ratio of the Web
/// Content Accessibility Guidelines. Opacity does not count.
double contrast(QRgb first, QRgb second);

/// A text with less on its ground is not shown in its colour.
inline constexpr double leastContrast = 3.0;

/// What a text of that colour is written on, unless a picture says otherwise; the panel's colour for all that is no
/// colour of a text.
Colour groundOf(Colour text);

QString colourName(Colour which);

/// The folder's name of the skin that this one is based on; "" where the text names none.
QString baseInText(const QString &text);

/// The title in the text; "" where it has none.
QString titleInText(const QString &text);

/// Puts on a skin what the text says: colours and families; what it does not say stays. So does what is no
/// colour; a colour that could hardly be seen on its ground becomes one that can. fault is called with a line about
/// each.
void readSkinText(Skin &skin, const QString &text, const std::function<void(const QString &)> &fault);
