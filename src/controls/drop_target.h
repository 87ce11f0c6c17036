// SPDX-License-Identifier: GPL-3.0-or-later
// Lets a window take files and folders of this machine that are dropped on it. Texts and links to elsewhere are
// refused, and so is everything while a question is open: the pointer says so. What is dropped stays where it is, and
// the program that it comes from is never told to give it away.
#pragma once

#include <QObject>
#include <QPoint>
#include <QStringList>

#include <functional>

class QDropEvent;
class QWidget;

class DropTarget : public QObject
{
    Q_OBJECT

public:
    /// wants: is there anything to do with these program paths? Asked once for what is dragged over the window.
    DropTarget(QWidget &window, std::function<bool(const QStringList &paths)> wants);

    bool eventFilter(QObject *window, QEvent *event) override;

Q_SIGNALS:
    /// What is wanted is at a point of the window, and is dropped there if let go.
    void hovered(const QPoint &place);

    /// It has left the window, or was dropped.
    void left();

    /// Comes when the drag is over and its source free again.
    void dropped(const QStringList &paths, const QPoint &place);

private:
    void enter(const QDropEvent &event);
    void answer(QDropEvent &event) const;
    void drop(QDropEvent &event);

    std::function<bool(const QStringList &)> m_wants;
    QStringList m_paths; // Of the drag that is over the window; none when it is refused.
};
