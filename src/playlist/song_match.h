// SPDX-License-Identifier: GPL-3.0-or-later
// Search in a list of song names, letter case ignored. The list is put into lower case once; a search is then one walk
// over one text, and a result becomes a text of its own only when somebody looks at it.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

struct SongMatch {
    qsizetype index;    // Which name.
    qsizetype position; // Where in it the text begins, from 0.
};

class SongNames
{
public:
    explicit SongNames(QStringList names = {});

    const QStringList &names() const { return m_names; }

    /// The names that hold text, in order, each with its first occurrence; the empty text is at the start of every
    /// name.
    std::vector<SongMatch> search(const QString &text) const;

private:
    QStringList m_names;
    QString m_lowered;               // All names, each followed by a character that no name holds.
    std::vector<qsizetype> m_starts; // Where each name begins in it, and the end.
};

/// The name with length characters from position in capitals. Letters whose capital form is another name to a file
/// system that ignores case stay as they are ("ß"), so that the name can still be found.
QString capitalised(QString name, qsizetype position, qsizetype length);
