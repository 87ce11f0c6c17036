// SPDX-License-Identifier: GPL-3.0-or-later
// What every control has: its short name as object name, a fixed plain description for who cannot see it, its place.
#pragma once

#include <QRect>
#include <QString>

class QKeyEvent;
class QWidget;

struct ControlSetup {
    QString name;        // The short name of the design ("File1"); tests find the control by it.
    QString description; // Plain English, never changing ("Songs"); assistive tools read it and find the control by it.
    QRect place;         // In logical pixels of the window.
};

/// Gives a control its name, its description and its place.
void setUpControl(QWidget &control, const ControlSetup &setup);

/// Is it one of the two keys that mean "do it"?
bool isEnter(const QKeyEvent &event);

/// Logical pixels of a length in twips.
constexpr int fromTwips(int twips)
{
    return twips / 15;
}
