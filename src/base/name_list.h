// SPDX-License-Identifier: GPL-3.0-or-later
// A list of names that is small and quick to go through: all names in one run of bytes, so that a million of them cost
// their letters and eight bytes each. A copy costs nothing until one of the two changes.
//
// The bytes are UTF-8, but every code unit of a text is encoded by itself, halves of surrogate pairs too. So every text
// leads to bytes of its own and back, bytes compare as the texts do, and a text is found in a name where its bytes are.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <initializer_list>

class NameList
{
public:
    NameList() = default;
    NameList(const QStringList &names);
    NameList(std::initializer_list<QString> names) : NameList(QStringList(names)) {}

    /// The bytes of a text as a list keeps it.
    static QByteArray bytesOf(QStringView text);

    qsizetype size() const { return m_ends.size(); }
    bool isEmpty() const { return m_ends.isEmpty(); }

    /// A name; value() gives "" for one that is not there.
    QString operator[](qsizetype index) const;
    QString value(qsizetype index) const;

    /// A name's bytes, as long as the list stays as it is.
    QByteArrayView bytes(qsizetype index) const
    {
        const qsizetype start = startOf(index);
        return {m_bytes.constData() + start, m_ends[index] - start};
    }

    /// Those of all names in a row, with nothing between them.
    QByteArrayView allBytes() const { return m_bytes; }

    /// Where a name stands first, -1 when it is not there.
    qsizetype indexOf(QStringView name) const;

    QStringList toStringList() const;

    NameList &operator+=(QStringView name) { return appendBytes(bytesOf(name)); }

    /// Appends a name that is in the list's encoding already.
    NameList &appendBytes(QByteArrayView bytes);

    void removeAt(qsizetype index);

    /// Puts names before the one at index, or at the end.
    void insert(qsizetype index, const NameList &names);

    /// Gives back the room kept for more names.
    void squeeze();

    /// Sorts without regard to case; names that differ in case alone keep a fixed order.
    void sort();

    /// The names in another form. It has to put the letters A to Z into lower case, which is done here for names of
    /// ASCII alone, and to leave the rest of ASCII as it is.
    NameList inForm(QString (*form)(const QString &name)) const;

    /// Are both still copies of one list?
    bool isSharedWith(const NameList &other) const { return m_ends.isSharedWith(other.m_ends); }

    friend bool operator==(const NameList &one, const NameList &other)
    {
        return one.m_ends == other.m_ends && one.m_bytes == other.m_bytes;
    }

private:
    qsizetype startOf(qsizetype index) const { return index == 0 ? 0 : m_ends[index - 1]; }
    NameList inOrder(const QList<qsizetype> &order) const;

    QByteArray m_bytes;
    QList<qsizetype> m_ends; // Where each name ends in them.
};
