// SPDX-License-Identifier: GPL-3.0-or-later
// The start-up window: name, version and a bar that fills while it is on show. Everything is loaded before it appears.
#pragma once

#include "controls/frame.h"
#include "controls/label.h"
#include "controls/skin_window.h"

class Splash : public SkinWindow
{
    Q_OBJECT

public:
    Splash();

    /// Shows the window and runs its animation to the end; handlers of other windows may run in between.
    void animate();

    Label TheVer;        // Version of the program.
    Label Label2;        // Status line during the animation.
    Label Label1;        // Title.
    ProgressBar ProgBar; // Fills from the left.
};
