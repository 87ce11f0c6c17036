// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own version and names.
#pragma once

#include <QString>

struct ProgramVersion {
    int major;
    int minor;
    int revision;
};

inline constexpr ProgramVersion programVersion{KIV_VERSION}; // CMakeLists.txt says it, for everything that is made.

/// "2.4 Build [67]".
inline QString versionText(const ProgramVersion &version = programVersion)
{
    return QStringLiteral("%1.%2 Build [%3]").arg(version.major).arg(version.minor).arg(version.revision);
}

/// What the program is called: on the skin, in titles, menus and on the bus.
inline QString programName()
{
    return QStringLiteral("KiV Mp3");
}
