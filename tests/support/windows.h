// SPDX-License-Identifier: GPL-3.0-or-later
// What tests do to any window: find its controls by name, click the rows of its lists, read the boxes it showed.
#pragma once

#include "controls/list_box.h"
#include "controls/msg_box.h"
#include "controls/skin_window.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

/// The player's window of that name; a missing one ends the test run.
inline SkinWindow &skinWindow(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *skin = qobject_cast<SkinWindow *>(window); skin && skin->objectName() == name)
            return *skin;
    }
    qFatal("no window %s", qPrintable(name));
}

/// The control of that name; a missing one ends the test run.
template<class Control>
Control &control(const QWidget &window, const QString &name)
{
    auto *found = window.findChild<Control *>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return *found;
}

inline QPoint rowPlace(const ListBox &list, int row)
{
    return list.visualRect(list.model()->index(row, 0)).center();
}

inline void clickRow(ListBox &list, int row, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(list.viewport(), button, {}, rowPlace(list, row));
}

inline void doubleClickRow(ListBox &list, int row)
{
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, rowPlace(list, row));
}

/// What assistive tools are told of each row beside its text, "-" for nothing.
inline QString marksOf(const ListBox &list)
{
    QStringList marks;
    for (int row = 0; row < list.ListCount(); ++row) {
        const QString mark = list.model()->index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
        marks += mark.isEmpty() ? QStringLiteral("-") : mark;
    }
    return marks.join(u' ');
}

/// The tool tip while the mouse rests on a row; beside the rows with row -1.
inline QString tipOf(const ListBox &list, int row)
{
    const QPoint place = row < 0 ? list.viewport()->rect().bottomLeft() : rowPlace(list, row);
    QHelpEvent rest(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list.viewport(), &rest);
    return QToolTip::text();
}

/// The boxes shown since the last question, each as "title|text".
inline QStringList takeBoxes()
{
    QStringList boxes;
    for (const MsgBox::Shown &box : MsgBox::takeShown())
        boxes += box.title + u'|' + box.text;
    return boxes;
}
