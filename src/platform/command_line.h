// SPDX-License-Identifier: GPL-3.0-or-later
// The command line as one text, the way the player reads it.
#pragma once

#include <QString>
#include <QStringList>

/// The arguments as one text, each in quotation marks: one that comes without them from a shell is put in them first.
/// File paths in host form, relative ones too, become program paths. "" when there are no arguments.
QString commandLineText(const QStringList &arguments);
