// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_box.h"

#include "controls/fonts.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QToolTip>

#include <algorithm>

namespace
{
// A name may hold line breaks; rows are one line high.
QString onOneLine(QString text)
{
    const auto breaksLine = [](QChar c) {
        return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    std::replace_if(text.begin(), text.end(), breaksLine, u' ');
    return text;
}
} // namespace

class ListBoxModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_items.size()) + m_bareRows;
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::AccessibleTextRole && m_accessibleForm)
            return m_accessibleForm(index.row());
        if (role == Qt::AccessibleDescriptionRole && m_accessibleMark)
            return m_accessibleMark(index.row());
        return role == Qt::DisplayRole ? QVariant(onOneLine(shown(index.row()))) : QVariant();
    }

    QString shown(int row) const
    {
        if (row < 0 || row >= rowCount())
            return {};
        return m_shownForm ? m_shownForm(row, m_items.value(row)) : m_items.value(row);
    }

    void replace(const NameList &items, int bareRows = 0)
    {
        beginResetModel();
        m_items = items;
        m_bareRows = bareRows;
        endResetModel();
    }

    void insert(int row, const QStringList &items)
    {
        beginInsertRows({}, row, row + static_cast<int>(items.size()) - 1);
        m_items.insert(row, items);
        endInsertRows();
    }

    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        m_items.removeAt(row);
        endRemoveRows();
    }

    NameList m_items;
    int m_bareRows = 0; // Rows without an item.
    std::function<QString(int, const QString &)> m_shownForm;
    std::function<QString(int)> m_accessibleForm;
    std::function<QString(int)> m_accessibleMark;
};

ListBox::ListBox(QWidget *parent, const ControlSetup &setup) : RowView(parent), m_items(new ListBoxModel(this))
{
    setUpControl(*this, setup);
    m_items->m_accessibleMark = [this](int row) {
        const RowMark mark = markOf(row);
        return mark == RowMark::Playing  ? QStringLiteral("Playing")
               : mark == RowMark::Paused ? QStringLiteral("Paused")
                                         : QString();
    };
    setModel(m_items);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setFrameShape(StyledPanel); // The room for the focus ring.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setFont(fonts::font(fonts::Face::Arial, 12));
    setMouseTracking(true);
}

void ListBox::insertItems(int row, const QStringList &texts)
{
    if (!texts.isEmpty())
        m_items->insert(row, texts);
}

void ListBox::setItems(const NameList &items)
{
    const QScopedValueRollback quiet(m_quiet, true);
    m_items->replace(items);
}

void ListBox::setRows(int count)
{
    const QScopedValueRollback quiet(m_quiet, true);
    m_items->replace({}, count);
}

const NameList &ListBox::items() const
{
    return m_items->m_items;
}

void ListBox::setShownForm(std::function<QString(int, const QString &)> shownForm)
{
    m_items->m_shownForm = std::move(shownForm);
    viewport()->update();
}

void ListBox::setAccessibleForm(std::function<QString(int)> accessibleForm)
{
    m_items->m_accessibleForm = std::move(accessibleForm);
}

void ListBox::setMark(const QString &item, RowMark mark)
{
    if (m_hasMarks && m_markedItem == item && m_mark == mark)
        return;
    notifyMark();
    m_hasMarks = true;
    m_markedItem = item;
    m_mark = mark;
    notifyMark();
    viewport()->update();
}

RowMark ListBox::markOf(int row) const
{
    return m_mark != RowMark::None && m_items->m_items.value(row) == m_markedItem ? m_mark : RowMark::None;
}

// The marked row has another description now.
void ListBox::notifyMark()
{
    if (m_mark != RowMark::None && QAccessible::isActive())
        notify(QAccessible::DescriptionChanged, m_items->index(static_cast<int>(items().indexOf(m_markedItem))));
}

bool ListBox::RemoveItem(int row)
{
    if (row < 0 || row >= ListCount())
        return false;
    const int chosen = ListIndex();
    const QScopedValueRollback quiet(m_quiet, true);
    m_items->remove(row);
    chooseQuietly(chosen == row ? -1 : chosen > row ? chosen - 1 : chosen);
    return true;
}

int ListBox::ListCount() const
{
    return m_items->rowCount();
}

QString ListBox::List(int row) const
{
    return m_items->shown(row);
}

int ListBox::ListIndex() const
{
    return currentIndex().row();
}

void ListBox::setListIndex(int row)
{
    setCurrentIndex(m_items->index(row));
}

void ListBox::chooseQuietly(int row)
{
    const QScopedValueRollback quiet(m_quiet, true);
    setCurrentIndex(m_items->index(row));
}

int ListBox::rowAt(const QPoint &point) const
{
    return indexAt(point).row();
}

void ListBox::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    RowView::currentChanged(current, previous);
    if (current.isValid() != previous.isValid())
        update(); // A list without a choice has its ring around itself.
    if (m_quiet || !current.isValid())
        return;
    m_clickSent = true;
    Q_EMIT Click();
}

void ListBox::pressRow(int row)
{
    m_clickSent = false;
    setListIndex(row);
    if (!m_clickSent)
        Q_EMIT Click();
    Q_EMIT DblClick();
}

// The tip belongs to its row: it stays while the mouse moves within it and goes with it.
bool ListBox::viewportEvent(QEvent *event)
{
    const auto *help = event->type() == QEvent::ToolTip ? static_cast<QHelpEvent *>(event) : nullptr;
    const QModelIndex row = help && m_rowTip ? indexAt(help->pos()) : QModelIndex();
    if (!row.isValid())
        return RowView::viewportEvent(event);
    QToolTip::showText(help->globalPos(), m_rowTip(row.row()), viewport(), visualRect(row));
    return true;
}

void ListBox::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
    Q_EMIT KeyDown(event);
    if (!event->isAccepted())
        RowView::keyPressEvent(event);
}

void ListBox::mousePressEvent(QMouseEvent *event)
{
    m_menuPosition = event->globalPosition().toPoint();
    m_menuRow = rowAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton) {
        Q_EMIT MouseDown(event->button());
        return;
    }
    Q_EMIT MouseDown(event->button());
    m_clickSent = false;
    m_pressedRow = rowAt(event->position().toPoint());
    RowView::mousePressEvent(event);
}

void ListBox::mouseReleaseEvent(QMouseEvent *event)
{
    RowView::mouseReleaseEvent(event);
    const bool again = event->button() == Qt::LeftButton && !m_clickSent && m_pressedRow >= 0;
    if (again && rowAt(event->position().toPoint()) == m_pressedRow)
        Q_EMIT Click();
    m_pressedRow = -1;
}

void ListBox::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rowAt(event->position().toPoint()) >= 0)
        Q_EMIT DblClick();
}

void ListBox::mouseMoveEvent(QMouseEvent *event)
{
    // A drag chooses nothing on its way: choosing may mean playing.
    if (event->buttons() == Qt::NoButton)
        Q_EMIT MouseMove(rowAt(event->position().toPoint()), event->buttons());
}

void ListBox::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) // A press of the button has asked already.
        askForMenu();
}

void ListBox::askForMenu()
{
    const QRect row = visualRect(currentIndex());
    m_menuRow = ListIndex();
    m_menuPosition = viewport()->mapToGlobal(row.isValid() ? row.bottomLeft() : QPoint(0, 0));
    Q_EMIT MouseDown(Qt::RightButton);
}

// Qt would make the first row the current one. That the list has the keyboard now is told after this event, and which
// row it is at after that.
void ListBox::focusInEvent(QFocusEvent *event)
{
    if (!currentIndex().isValid())
        return QAbstractScrollArea::focusInEvent(event);
    RowView::focusInEvent(event);
    if (QAccessible::isActive())
        QMetaObject::invokeMethod(this, &ListBox::notifyFocus, Qt::QueuedConnection);
}

void ListBox::notifyFocus()
{
    if (hasFocus())
        notify(QAccessible::Focus, currentIndex());
}
