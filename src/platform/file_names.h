// SPDX-License-Identifier: GPL-3.0-or-later
// File names between the host's bytes and the program's texts. Every name of the host has a text of its own, and the
// text leads back to the same bytes: bytes that are no UTF-8 travel as lone surrogates, a backslash as U+F05C.
#pragma once

#include "base/name_list.h"

#include <QByteArray>
#include <QString>

constexpr qsizetype longestHostName = 255; // Bytes, on all usual file systems.

/// The text of one name (no path) as the host stores it.
QString nameFromHost(QByteArrayView hostName);

/// Appends that text to a list, which is quicker than making it first.
void appendNameFromHost(NameList &names, QByteArrayView hostName);

/// The host's bytes of a name or path in host form.
QByteArray nameToHost(QStringView name);

/// A text in the host's form with U+F05C in the place of each backslash; where it stands itself, its bytes as odd ones.
QString withStandIns(QString hostText);

/// UTF-8 and back; bytes that are no UTF-8 travel as in names, so that a text that holds such a name can be kept.
QString textFromBytes(QByteArrayView bytes);
QByteArray textToBytes(QStringView text);
