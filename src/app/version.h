// The program's own version and names.
#pragma once

#include <QString>

struct ProgramVersion {
    int major = 2;
    int minor = 4;
    int revision = 67;
};

/// "2.4 Build [67]".
inline QString versionText(const ProgramVersion &version = {})
{
    return QStringLiteral("%1.%2 Build [%3]").arg(version.major).arg(version.minor).arg(version.revision);
}

inline QString programTitle()
{
    return QStringLiteral("Zelk of Tessadin Mp3");
}
