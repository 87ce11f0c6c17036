// SPDX-License-Identifier: GPL-3.0-or-later
// The skins there are: those that come with the player and the user's own, each a folder with a skin.ini; and which one
// the user has chosen.
#pragma once

#include "controls/skin.h"

#include <QList>

#include <optional>

namespace paths
{
inline const QString userSkins = QStringLiteral("c:\\skins"); // One folder a skin.
inline const QString chosenSkinFile = QStringLiteral("c:\\skins\\chosen.txt");
} // namespace paths

inline const QString skinFileName = QStringLiteral("skin.ini");
inline constexpr qint64 longestSkinText = qint64(1) << 16; // Of that file.

struct SkinPlace {
    QString name;   // Of the folder; of a folder from elsewhere its host path.
    QString title;  // What people read.
    QString folder; // Host path.
};

/// All skins: the one that all others are based on, the others that come with the player, the user's own, each by
/// their titles. A skin of the user's named like one of the player's is left out.
QList<SkinPlace> skinsThere();

/// The skin of a name or title, whatever its case, or in a host folder that need not have a skin.ini; nothing when
/// there is none.
std::optional<SkinPlace> findSkin(const QString &nameOrFolder);

/// A skin with all that it is based on. What is wrong with it is complained of, and left out.
Skin readSkin(const SkinPlace &place);

/// The skin to start with: the wanted one of this run, else the chosen one; the first one where that is missing.
Skin skinAtStart(const QString &wanted);

/// The name of the skin that the user has chosen; "" for none.
QString chosenSkin();

/// Keeps the choice for the next start. Why it could not be kept, a whole sentence; "" when it is.
QString keepChosenSkin(const QString &name);
