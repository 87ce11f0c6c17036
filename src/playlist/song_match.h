// SPDX-License-Identifier: GPL-3.0-or-later
// Search in a list of song names, letter case ignored. A million songs are normal: the list is put into lower case
// once, a search is one walk over that, a longer text is looked for among what the shorter one found, and a result
// becomes a text of its own only when somebody looks at it.
#pragma once

#include "base/name_list.h"

#include <optional>
#include <vector>

struct SongMatch {
    int row;   // Of the name.
    int place; // Somewhere in the name's bytes where the text stands, -1 when nobody looked.
};

class SongNames
{
public:
    explicit SongNames(NameList names = {});

    const NameList &names() const { return m_names; }

    /// Puts the names that hold text into matches, in their order; the empty text is in every name. matches has what
    /// the last search put there.
    void search(const QString &text, std::vector<SongMatch> &matches);

private:
    void searchAll(const QByteArray &wanted, std::vector<SongMatch> &matches) const;
    void takeByLetters(quint64 letters, std::vector<SongMatch> &matches) const;
    void takeByText(const QByteArray &wanted, std::vector<SongMatch> &matches) const;
    bool narrow(const QByteArray &wanted, std::vector<SongMatch> &matches) const;

    NameList m_names;
    NameList m_lowered;
    std::vector<quint64> m_letters;     // Of each name, a bit for each letter in it.
    std::optional<QByteArray> m_wanted; // The last text searched for.
};

/// How a name is shown that holds text: its first occurrence is in capitals. Letters whose capital form is another name
/// to a file system that ignores case stay as they are ("ß").
QString shownResult(const QString &name, const QString &text);
