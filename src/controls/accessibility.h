// SPDX-License-Identifier: GPL-3.0-or-later
// What assistive tools see of the player's own controls.
#pragma once

/// Makes labels and picture buttons known as texts and buttons with a press action. Called once, before the first
/// window.
void installAccessibility();
