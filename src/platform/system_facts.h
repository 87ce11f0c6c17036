// SPDX-License-Identifier: GPL-3.0-or-later
// What runs here: the system and its processes.
#pragma once

#include <QString>
#include <QStringList>

/// Name and version of the system and of its kernel, as people write them.
QString systemVersionText();

/// The running processes the player may see, "number  name" each, by number. Empty where the system does not tell.
QStringList runningProcesses();
