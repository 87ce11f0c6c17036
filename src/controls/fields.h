// SPDX-License-Identifier: GPL-3.0-or-later
// What the user fills in: check boxes, drop-down lists, lines of text.
#pragma once

#include "controls/control.h"
#include "controls/readable.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

/// A check box with the states 0 and 1. A change of state fires Click(), also when the program makes it.
class CheckBox : public QCheckBox
{
    Q_OBJECT

public:
    CheckBox(QWidget *parent, const ControlSetup &setup, const QString &caption);

    int State() const { return isChecked() ? 1 : 0; }

    /// 0 or 1; any other number changes nothing.
    void setState(int state);

    /// The colour of its ground, to blend into the skin.
    void setBackColour(const QColor &colour);

Q_SIGNALS:
    void Click();
};

/// A drop-down list in a well of the skin: one of its items is chosen, or none. The wheel changes it only while it has
/// the focus, and does not give it the focus.
class ComboBox : public QComboBox, public OnPicture
{
    Q_OBJECT

public:
    ComboBox(QWidget *parent, const ControlSetup &setup, const QStringList &items);

    /// The chosen item, -1 for none.
    int ListIndex() const { return currentIndex(); }
    void setListIndex(int index) { setCurrentIndex(index); }

    QString List(int index) const { return itemText(index); }
    int ListCount() const { return count(); }

    Colour textColour() const override { return Colour::listText; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void tellChoice(int index);
};

/// One line of text, edited or just shown. A change made by the program fires Change() as typing does.
class TextBox : public QLineEdit, public OnPicture
{
    Q_OBJECT

public:
    TextBox(QWidget *parent, const ControlSetup &setup);

    QString Text() const { return text(); }
    void setText(const QString &text);

    /// Shows only, in the font that it has: no frame, no caret, no keyboard. A text too wide for its place is set in
    /// narrower letters.
    void setDisplayOnly();

    Colour textColour() const override { return m_isDisplay ? Colour::displayText : Colour::listText; }

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
    void changeEvent(QEvent *event) override;

private:
    void takeColours();
    void fitText();

    bool m_isDisplay = false;
};
