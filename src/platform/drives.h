// SPDX-License-Identifier: GPL-3.0-or-later
// Paths of the program and paths of the host. In the program every path has a drive and backslashes:
// "c:\" is the player's data folder, "z:\" the root of the host's file system. Doubled backslashes are one.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// The player's data folder on the host, the home of "c:\": $KIV_MP3_HOME, else $XDG_DATA_HOME/kiv-mp3.
QString dataFolder();

/// Makes the data folder where it is missing: "c:\" is to exist on every machine.
void makeDataFolder();

/// The drives there are, in the form "c:\".
QStringList drives();

/// The host's bytes for a program path, spelled as given. Empty for a drive that does not exist.
QByteArray hostPath(const QString &path);

/// As hostPath(), but the spelling on disk: the exact name where it exists, else the name equal when case is ignored,
/// folder by folder. What is not found keeps the given spelling.
QByteArray hostPathOnDisk(const QString &path);

/// The same; nothing when the host failed to tell what there is.
std::optional<QByteArray> pathOnDiskIfKnown(const QString &path);

/// The path as it is spelled on disk; as given where it is so already, or where it is not found.
QString spelledAsOnDisk(const QString &path);

/// The program's form of a path in either form; "" stays "". A host path that is relative is taken from the process's
/// current folder.
QString programPath(const QString &anyPath);

/// What a person reads: the host's own form of a program path; the path as given for a drive that does not exist.
QString displayPath(const QString &path);

/// "file://…" of a program path, byte by byte as the host names the file; "" where the host has no such path.
QString fileUri(const QString &path);

/// The program path of a file URI, or of a plain path that begins with a slash; "" for everything else.
QString pathOfUri(const QString &uri);
