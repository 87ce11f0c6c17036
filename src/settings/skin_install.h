// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps a skin that came from elsewhere among the user's own.
#pragma once

#include "platform/entries.h"
#include "settings/skin_files.h"

struct KeptSkin {
    RenameResult result = RenameResult::Failed; // OtherExists: the user has a skin of that name, and it stays.
    QString name;                               // Of its folder in c:\skins.
    QString fault;                              // Why it could not be kept, a whole sentence.
};

/// The name that a skin is kept under: letters, digits, blanks and a few marks of it; "" when none are left.
QString keptName(const QString &name);

/// Puts the files into a folder of their own in c:\skins. All of them are on the disk before the folder has its name.
/// What is replaced goes to the trash, so the caller asks before it calls with Existing::Replace. A folder that lies
/// among the skins already is just there.
KeptSkin keepSkin(const SkinFiles &skin, Existing existing);
