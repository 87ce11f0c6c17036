// SPDX-License-Identifier: GPL-3.0-or-later
// Where windows go.
#pragma once

class QWidget;

/// Moves a window to the middle of its screen, slightly above.
void CenterWindow(QWidget &window);
