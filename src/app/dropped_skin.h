// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is asked and told when a skin from elsewhere is kept.
#pragma once

#include "settings/skin_install.h"

/// Keeps a skin from a folder or archive (a program path) among the user's own, after a question where that replaces
/// one. A box tells why it cannot be kept. OtherExists: the user said no.
KeptSkin keepAsking(const QString &path);
