// SPDX-License-Identifier: GPL-3.0-or-later
// A shortcut to the player on the user's desktop.
#pragma once

#include <QByteArray>
#include <QString>

/// The program's own executable in host form, cut to 127 characters.
QString AppFilePath();

/// The user's desktop folder as a program path; "" when there is none.
QString DesktopFolderPath();

/// The text of a shortcut file that starts target (in host form). icon is a picture's host path or "". Empty when
/// target is no valid UTF-8: such a file could not name it.
QByteArray shortcutText(const QString &name, const QByteArray &target, const QByteArray &icon);

/// Makes an executable shortcut of that name in folder (a program path, with or without a backslash at its end), or
/// replaces it. False when it could not be made.
bool createDesktopShortcut(const QString &folder, const QString &name, const QString &target);
