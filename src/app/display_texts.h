// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of the main window and of the splash, and when they change.
#pragma once

#include "mp3info/quick_header.h"

#include <QString>

/// The text rotated left by one character; "" stays "".
QString rotatedTitle(const QString &title);

/// "1:05/3:07" of two times in seconds.
QString timeText(double positionSeconds, double durationSeconds);

/// The same for a voice: "1:05 of 3:07"; "" without a length.
QString placeInWords(double positionSeconds, double durationSeconds);

/// Milliseconds until a playing position, rounded to whole seconds, reads differently.
int msUntilNextSecond(double positionSeconds);

/// What a song's tip says: "Name=…", " Time=…", " Size=…"; "" without a song.
QString songTip(const QString &name, const QuickHeader &header);

/// How much of the splash's bar is filled at a step, and the status line that goes with it.
struct SplashStep {
    double fraction;
    QString status;
};

inline constexpr int splashSteps = 800;

/// Step 1 to splashSteps for a bar of that width: "Loading Settings..." while less than half of it is filled.
SplashStep splashStep(int step, int barWidth);
