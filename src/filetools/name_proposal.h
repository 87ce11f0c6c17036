// SPDX-License-Identifier: GPL-3.0-or-later
// What the name formatter proposes for a file: artist and title parted at hyphens, then tidied.
#pragma once

#include <QString>

#include <optional>

struct NameProposal {
    QString name;                    // The new name, extension included.
    std::optional<QString> songName; // What follows the first hyphen; nothing when the name holds none.
};

/// The proposal for a file name. The split is at the first hyphen, at the second when there is one, never later.
NameProposal proposeName(const QString &fileName);

/// The name with what stands before and after its first hyphen swapped, its extension kept; nothing without a hyphen.
std::optional<QString> withSidesSwapped(const QString &fileName);
