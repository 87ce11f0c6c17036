// SPDX-License-Identifier: GPL-3.0-or-later
// What the file system says about a file beside its bytes.
#pragma once

#include <QString>

/// "Read Only" for a normal file its owner may not write; "Normal" for all else, a missing file too.
QString FileAttributeText(const QString &path);
