// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/center_window.h"

#include "base/window_place.h"

#include <QScreen>
#include <QWidget>

void CenterWindow(QWidget &window)
{
    const QRect screen = window.screen()->geometry();
    window.move(screen.topLeft() + centredPlace(screen.size(), window.size()).toPoint());
}
