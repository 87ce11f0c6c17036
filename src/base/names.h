// SPDX-License-Identifier: GPL-3.0-or-later
// Names and paths as texts: cutting them apart and putting them together. No file is looked at here (see platform/).
#pragma once

#include <QString>

/// The text after the last backslash; the whole path when it holds none.
QString FileNameFromPath(const QString &path);

/// The path up to and including its last backslash; "" when it holds none.
QString FolderFromPath(const QString &path);

/// A file name less its last four characters: the extension and its dot.
QString withoutExtension(const QString &fileName);

/// folder & "\" & name; a folder that ends in a backslash already gives a doubled one, which stands for one.
QString pathIn(const QString &folder, const QString &name);

/// As pathIn(), but never with a doubled backslash.
QString tidyPathIn(const QString &folder, const QString &name);
