// SPDX-License-Identifier: GPL-3.0-or-later
// A list view whose rows are all of one height and as wide as the view. QListView keeps a place for every row and goes
// through all of them at each change; here the place follows from the row's number, so that a million rows cost
// nothing. There is no horizontal scrolling, no hidden row, no drag and drop; it scrolls row by row.
#pragma once

#include "controls/row_mark.h"

#include <QAccessible>
#include <QListView>

class RowView : public QListView
{
    Q_OBJECT

public:
    explicit RowView(QWidget *parent);

    QRect visualRect(const QModelIndex &index) const override;
    QModelIndex indexAt(const QPoint &point) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

    /// The gap between rows that is nearest to a point: the number of rows above it. Below the view it is the last one.
    int gapAt(const QPoint &point) const;

    /// Marks a gap, by which something would come in; -1 for none.
    void markGap(int gap);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

    /// What a row is marked with.
    virtual RowMark markOf(int) const { return RowMark::None; }

    /// Notifies assistive tools about a row; does nothing without one.
    void notify(QAccessible::Event what, const QModelIndex &index);

private:
    int firstRow() const;
    int rowHeight() const;
    int rowsOnAPage() const;
    int rowCount() const { return model() ? model()->rowCount() : 0; }
    void paintRow(QPainter &painter, QStyleOptionViewItem option, int row) const;
    void paintGapMark(QPainter &painter) const;

    mutable int m_rowHeight = 0; // 0: not measured yet.
    int m_markedGap = -1;
};
