// SPDX-License-Identifier: GPL-3.0-or-later
// What Qt leaves undone under X11. Everywhere else nothing happens.
#pragma once

class QWindow;

/// A window that was once minimised goes on asking to be shown minimised, whenever it is shown after having been
/// hidden. This takes the wish back; to be called while the window is hidden.
void forgetMinimised(QWindow &window);

/// Is there a tray of the kind that takes windows in? (The newer kind is found on the session bus.)
bool isX11TrayThere();
