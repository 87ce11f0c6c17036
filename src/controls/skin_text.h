// SPDX-License-Identifier: GPL-3.0-or-later
// The text file of a skin, skin.ini: its title, its colours, its families of fonts, the skin it is based on.
#pragma once

#include "controls/skin.h"

/// The title in the text; "" where it has none.
QString titleInText(const QString &text);

/// The name or title of the skin that this one is based on; "" where the text names none.
QString baseInText(const QString &text);

/// Puts on a skin what the text says: colours and families. What it does not say stays, as does a colour for which it
/// says none that can be read; one that could hardly be seen on its ground becomes one that can. fault is called with a
/// line about each.
void readSkinText(Skin &skin, const QString &text, const TellFault &fault);
