// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/pump_events.h"

#include <QCoreApplication>

void PumpEvents()
{
    constexpr int passes = 100;
    for (int pass = 0; pass < passes; ++pass)
        QCoreApplication::processEvents();
}
