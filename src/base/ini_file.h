// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of one section of an INI text: finding the value of one and putting another one in its place. Plain texts in
// and out; files are settings_store's business.
#pragma once

#include <QString>
#include <QStringList>

/// A value comes back with at most this many characters.
inline constexpr qsizetype longestIniValue = 749;

/// The value of the first line for key in the first section of that name, both whatever their case; blanks around it
/// and one pair of quotation marks are taken off. "" when there is none.
QString iniValue(QStringView text, QStringView section, QStringView key);

/// The keys of the first section of that name, as they are written; none when there is none.
QStringList iniKeys(QStringView text, QStringView section);

/// The text with "key=value" in the place of that line, else at the end of the section, which is added when missing.
/// Everything else stays as it is, line ends too. Line breaks in value become blanks: a value is one line. It is put
/// in quotation marks where it would not come back without them: one that ends in a blank, for instance.
QString withIniValue(const QString &text, QStringView section, QStringView key, const QString &value);
