// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/row_view.h"

#include "controls/skin.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <utility>

RowView::RowView(QWidget *parent) : QListView(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
}

// The height of a row of plain letters, whatever letters the rows hold.
int RowView::rowHeight() const
{
    if (m_rowHeight == 0) {
        QStyleOptionViewItem option;
        initViewItemOption(&option);
        option.features |= QStyleOptionViewItem::HasDisplay;
        option.text = QStringLiteral("A");
        m_rowHeight = std::max(1, style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).height());
    }
    return m_rowHeight;
}

int RowView::rowsOnAPage() const
{
    return viewport()->height() / rowHeight();
}

void RowView::changeEvent(QEvent *event)
{
    m_rowHeight = 0; // Font or style may be another.
    QListView::changeEvent(event);
}

// The scroll bar knows of new rows when the layout that they asked for has been done.
int RowView::firstRow() const
{
    const_cast<RowView *>(this)->executeDelayedItemsLayout();
    return verticalScrollBar()->value();
}

int RowView::verticalOffset() const
{
    return firstRow() * rowHeight();
}

QRect RowView::visualRect(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    return {0, (index.row() - firstRow()) * rowHeight(), viewport()->width(), rowHeight()};
}

QModelIndex RowView::indexAt(const QPoint &point) const
{
    const bool isBeside = point.y() < 0 || point.x() < 0 || point.x() >= viewport()->width();
    return isBeside ? QModelIndex() : model()->index(firstRow() + point.y() / rowHeight(), 0);
}

int RowView::gapAt(const QPoint &point) const
{
    if (point.y() >= viewport()->height())
        return rowCount();
    const int rowsAbove = (std::max(0, point.y()) + rowHeight() / 2) / rowHeight();
    return std::min(firstRow() + rowsAbove, rowCount());
}

void RowView::markGap(int gap)
{
    if (std::exchange(m_markedGap, gap) != gap)
        viewport()->update();
}

void RowView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    if (!index.isValid())
        return;
    const int first = firstRow();
    const int page = std::max(1, rowsOnAPage());
    const bool isAbove = index.row() < first;
    const bool isBelow = index.row() >= first + page;
    if (hint == PositionAtTop || (hint == EnsureVisible && isAbove))
        verticalScrollBar()->setValue(index.row());
    else if (hint == PositionAtBottom || (hint == EnsureVisible && isBelow))
        verticalScrollBar()->setValue(index.row() - page + 1);
    else if (hint == PositionAtCenter)
        verticalScrollBar()->setValue(index.row() - page / 2);
}

// There is no place to keep.
void RowView::doItemsLayout()
{
    QAbstractItemView::doItemsLayout();
}

void RowView::updateGeometries()
{
    const int page = rowsOnAPage();
    verticalScrollBar()->setSingleStep(1);
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setRange(0, std::max(0, rowCount() - page));
    QAbstractItemView::updateGeometries();
}

void RowView::scrollContentsBy(int, int)
{
    viewport()->update();
}

void RowView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int first = firstRow();
    const int from = first + event->rect().top() / rowHeight();
    const int to = std::min(rowCount() - 1, first + event->rect().bottom() / rowHeight());
    for (int row = from; row <= to; ++row)
        paintRow(painter, option, row);
    if (m_markedGap >= 0)
        paintGapMark(painter);
}

// A line with its ends turned to the rows that would part.
void RowView::paintGapMark(QPainter &painter) const
{
    constexpr int thickness = 2;
    constexpr int endHeight = 6;
    const int middle = std::max((m_markedGap - firstRow()) * rowHeight(), thickness / 2);
    const QRect line(0, middle - thickness / 2, viewport()->width(), thickness);
    const QColor colour = skinColour(Colour::focusRing);
    painter.fillRect(line, colour);
    for (const int x : {line.left(), line.right() - thickness + 1})
        painter.fillRect(x, middle - endHeight / 2, thickness, endHeight, colour);
}

void RowView::paintRow(QPainter &painter, QStyleOptionViewItem option, int row) const
{
    const QModelIndex index = model()->index(row, 0);
    option.rect = visualRect(index);
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_HasFocus, index == currentIndex() && (hasFocus() || viewport()->hasFocus()));
    option.state.setFlag(QStyle::State_MouseOver, false);
    itemDelegate()->paint(&painter, option, index);
    if (const RowMark mark = markOf(row); mark != RowMark::None)
        paintRowMark(painter, option.rect, mark, option.state & QStyle::State_Selected);
}

QModelIndex RowView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    const int row = currentIndex().row();
    const int last = rowCount() - 1;
    const int page = std::max(1, rowsOnAPage() - 1);
    if (row < 0)
        return model()->index(0, 0);
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return model()->index(std::max(0, row - 1), 0);
    case MoveDown:
    case MoveNext:
        return model()->index(std::min(last, row + 1), 0);
    case MovePageUp:
        return model()->index(std::max(0, row - page), 0);
    case MovePageDown:
        return model()->index(std::min(last, row + page), 0);
    case MoveHome:
        return model()->index(0, 0);
    case MoveEnd:
        return model()->index(last, 0);
    case MoveLeft:
    case MoveRight:
        break;
    }
    return currentIndex();
}

void RowView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command)
{
    const QModelIndex first = indexAt(rect.topLeft());
    const QModelIndex last = indexAt(rect.bottomRight());
    selectionModel()->select(first.isValid() && last.isValid() ? QItemSelection(first, last) : QItemSelection(),
                             command);
}

QRegion RowView::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (const QItemSelectionRange &range : selection)
        region += visualRect(range.topLeft()).united(visualRect(range.bottomRight())) & viewport()->rect();
    return region;
}

void RowView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QAbstractItemView::currentChanged(current, previous);
    if (hasFocus())
        notify(QAccessible::Focus, current);
}

void RowView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    notify(QAccessible::SelectionAdd, selected.indexes().value(0));
    notify(QAccessible::SelectionRemove, deselected.indexes().value(0));
    QAbstractItemView::selectionChanged(selected, deselected);
}

// What QListView tells assistive tools, which it numbers by the places it keeps.
void RowView::notify(QAccessible::Event what, const QModelIndex &index)
{
    if (!index.isValid() || !QAccessible::isActive())
        return;
    QAccessibleEvent event(this, what);
    event.setChild(index.row());
    QAccessible::updateAccessibility(&event);
}
