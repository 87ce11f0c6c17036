// A breath for the window system inside a long loop.
#include "base/pump_events.h"

#include <QCoreApplication>

void PumpEvents()
{
    constexpr int passes = 100;
    for (int pass = 0; pass < passes; ++pass)
        QCoreApplication::processEvents();
}
