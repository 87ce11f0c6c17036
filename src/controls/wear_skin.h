// SPDX-License-Identifier: GPL-3.0-or-later
// Changing the skin while the player runs.
#pragma once

#include "controls/skin.h"

/// Puts a skin on: every window, box and menu that is open shows it at once. Each widget is told by a StyleChange.
void wearSkin(const Skin &skin);
