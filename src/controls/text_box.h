// SPDX-License-Identifier: GPL-3.0-or-later
// One line of text, edited or just shown. Its change made by the program fires Change() as typing does.
#pragma once

#include "controls/control.h"

#include <QLineEdit>

class TextBox : public QLineEdit
{
    Q_OBJECT

public:
    TextBox(QWidget *parent, const ControlSetup &setup);

    QString Text() const { return text(); }
    void setText(const QString &text);

    /// Shows only: no frame, no caret, no keyboard.
    void setDisplayOnly();

Q_SIGNALS:
    void Change();

    /// A key on its way into the box; a handler that accepts the event keeps it.
    void KeyDown(QKeyEvent *event);

    void MouseDown(Qt::MouseButton button);

    /// The keyboard asks for a menu; a handler that accepts the event has shown one in place of the editing menu.
    void MenuKeyDown(QContextMenuEvent *event);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
};
