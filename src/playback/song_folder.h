// SPDX-License-Identifier: GPL-3.0-or-later
// The songs that the transport plays from: a folder, the names in it by row, one of them chosen at most. And where it
// goes in them.
#pragma once

#include <QObject>
#include <QString>

#include <cstdint>

class SongFolder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The folder as a program path.
    virtual QString folder() const = 0;

    virtual int count() const = 0;

    /// The file name in a row; "" past the end.
    virtual QString name(int row) const = 0;

    /// The chosen row, -1 for none.
    virtual int chosenRow() const = 0;

    /// Chooses a row; one past the end chooses nothing.
    virtual void choose(int row) = 0;

    /// The chosen song's file name, "" without one.
    QString chosenName() const { return name(chosenRow()); }

Q_SIGNALS:
    /// There are other songs, or another one is chosen.
    void changed();
};

/// The row after row among count songs, around the end; 0 without a choice (-1).
constexpr int nextRow(int row, int count)
{
    return row < count - 1 ? row + 1 : 0;
}

/// The row before row, around the start.
constexpr int previousRow(int row, int count)
{
    return row > 0 ? row - 1 : count - 1;
}

/// Where the advance through the folder goes from index: one past the end first, then to the start.
constexpr std::int32_t advancedIndex(std::int32_t index, int count)
{
    return index == count ? 0 : index + 1;
}
