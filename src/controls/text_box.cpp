// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_box.h"

#include <QKeyEvent>
#include <QMouseEvent>

TextBox::TextBox(QWidget *parent, const ControlSetup &setup) : QLineEdit(parent)
{
    setUpControl(*this, setup);
    setFrame(false);
    QPalette colours = palette();
    colours.setColor(QPalette::Base, Qt::transparent); // The well of the skin shows through.
    setPalette(colours);
    connect(this, &QLineEdit::textChanged, this, &TextBox::Change);
}

void TextBox::setText(const QString &text)
{
    if (text != QLineEdit::text())
        QLineEdit::setText(text);
}

void TextBox::setDisplayOnly()
{
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TextBox::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
    Q_EMIT KeyDown(event);
    if (!event->isAccepted())
        QLineEdit::keyPressEvent(event);
}

void TextBox::mousePressEvent(QMouseEvent *event)
{
    Q_EMIT MouseDown(event->button());
    QLineEdit::mousePressEvent(event);
}

void TextBox::contextMenuEvent(QContextMenuEvent *event)
{
    event->ignore();
    if (event->reason() == QContextMenuEvent::Keyboard)
        Q_EMIT MenuKeyDown(event);
    if (!event->isAccepted())
        QLineEdit::contextMenuEvent(event);
}
