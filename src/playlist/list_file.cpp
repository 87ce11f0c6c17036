// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/list_file.h"

#include "base/texts.h"
#include "platform/ansi_text.h"
#include "platform/files.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr QChar endOfFile(0x1A);

bool isLineBreak(QChar c)
{
    return c == u'\r' || c == u'\n';
}

QStringView withoutEndMarks(QStringView text)
{
    return withoutBlanksAfter(text, [](QChar c) { return c == endOfFile; });
}

// Walks over a text field by field.
class FieldReader
{
public:
    explicit FieldReader(QStringView text) : m_at(text.begin()), m_end(text.end()) {}

    /// Goes to the start of the next field; false when none is left.
    bool findField()
    {
        skip([](QChar c) { return isBlank(c) || isLineBreak(c); });
        return m_at != m_end;
    }

    QString readField() { return isQuoted() ? readQuoted() : readPlain(); }

private:
    template<class Condition>
    void skip(Condition condition)
    {
        m_at = std::find_if_not(m_at, m_end, condition);
    }

    // A quotation mark that is never closed belongs to the text: else it would swallow all that follows.
    bool isQuoted() const { return *m_at == u'"' && std::find(m_at + 1, m_end, u'"') != m_end; }

    QString readQuoted()
    {
        const auto start = m_at + 1;
        const auto close = std::find(start, m_end, u'"');
        m_at = close + 1;
        skip(isBlank);
        skipSeparator();
        return QStringView(start, close).toString();
    }

    QString readPlain()
    {
        const auto start = m_at;
        skip([](QChar c) { return c != u',' && !isLineBreak(c); });
        const QString field = QStringView(start, m_at).toString();
        skipSeparator();
        return field;
    }

    void skipSeparator()
    {
        if (m_at != m_end && (*m_at == u',' || isLineBreak(*m_at)))
            ++m_at; // The line feed of a pair is skipped before the next field.
    }

    QStringView::iterator m_at;
    QStringView::iterator m_end;
};
} // namespace

QStringList fieldsOf(QStringView text)
{
    QStringList fields;
    FieldReader reader(withoutEndMarks(text));
    while (reader.findField())
        fields += reader.readField();
    return fields;
}

QString linesOf(const QStringList &items)
{
    QString lines;
    for (const QString &item : items)
        lines.append(item).append(u"\r\n"_s);
    return lines;
}

QStringList LoadListFile(const QString &path)
{
    return fieldsOf(decodeTextFile(loadFile(path).bytes));
}

void SaveListFile(const QString &path, const QStringList &items)
{
    saveFile(path, encodeTextFile(linesOf(items)));
}
