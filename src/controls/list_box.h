// SPDX-License-Identifier: GPL-3.0-or-later
// A list of texts, one chosen at most. Choosing another row fires Click(), whether the user or the program does it; a
// mouse click on the chosen row fires it once more. An item past the end is empty text; choosing past the end chooses
// nothing. Neither a right click nor getting the focus changes the choice. A million rows are normal: nothing here
// costs time by the row but filling it.
#pragma once

#include "base/name_list.h"
#include "controls/control.h"
#include "controls/row_view.h"

#include <functional>

class ListBoxModel;

class ListBox : public RowView
{
    Q_OBJECT

public:
    ListBox(QWidget *parent, const ControlSetup &setup);

    /// Adds a text at the end.
    void AddItem(const QString &text) { insertItems(ListCount(), {text}); }

    /// Adds texts before a row. The chosen text stays chosen.
    void insertItems(int row, const QStringList &texts);

    /// Replaces all items; nothing is chosen afterwards, quietly.
    void setItems(const NameList &items);
    const NameList &items() const;

    /// As setItems(), but with so many rows that have no items: their texts come from the shown form.
    void setRows(int count);

    /// How an item is shown and returned by List(), when that is not the item itself (made on demand, row by row).
    void setShownForm(std::function<QString(int row, const QString &item)> shownForm);

    /// The accessible text of a row, when that is not the text shown.
    void setAccessibleForm(std::function<QString(int row)> accessibleForm);

    /// Marks the rows of an item, and no others. From the first time on there is room for marks before the texts.
    void setMark(const QString &item, RowMark mark);
    bool hasMarks() const { return m_hasMarks; }

    /// What the tool tip says while the mouse rests on a row; "" for no tip. Beside the rows it is the list's own.
    void setRowTip(std::function<QString(int row)> rowTip) { m_rowTip = std::move(rowTip); }

    void Clear() { setItems({}); }

    /// Removes item row; false when there is none. The choice is gone when it was that row, and stays with its text
    /// otherwise.
    bool RemoveItem(int row);

    int ListCount() const;

    /// The text of a row as shown; "" past the end.
    QString List(int row) const;

    /// The chosen row, -1 for none.
    int ListIndex() const;
    void setListIndex(int row);

    /// The row under a point of the list, -1 for none.
    int rowAt(const QPoint &point) const;

    /// Chooses a row and uses it, as a double click does.
    void pressRow(int row);

    /// Asks for the menu of the chosen row, as the menu key does: MouseDown() of the right button follows.
    void askForMenu();

    /// Where a menu asked for by the last MouseDown() opens, on the screen: at the mouse, or below the chosen row.
    QPoint menuPosition() const { return m_menuPosition; }

    /// The row that menu is for: the one under the press (-1: beside the rows), or the chosen one.
    int menuRow() const { return m_menuRow; }

Q_SIGNALS:
    void Click();
    void DblClick();

    /// A key on its way into the list; a handler that accepts the event keeps it.
    void KeyDown(QKeyEvent *event);

    /// A button went down, before the choice changes. The keyboard's menu key gives the right one.
    void MouseDown(Qt::MouseButton button);

    /// The mouse moved over a row (-1: beside the rows).
    void MouseMove(int row, Qt::MouseButtons buttons);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    bool viewportEvent(QEvent *event) override;
    RowMark markOf(int row) const override;

    /// Chooses a row without Click().
    void chooseQuietly(int row);

private:
    void notifyMark();
    void notifyFocus();

    ListBoxModel *m_items;
    std::function<QString(int)> m_rowTip;
    QPoint m_menuPosition;
    int m_menuRow = -1;
    int m_pressedRow = -1;
    QString m_markedItem;
    RowMark m_mark = RowMark::None;
    bool m_hasMarks = false;
    bool m_quiet = false;
    bool m_clickSent = false;
};
