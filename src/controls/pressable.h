// SPDX-License-Identifier: GPL-3.0-or-later
// What every control that can be a button shares: a left click that ends where it began, Enter and Space run its
// command, and it knows whether the mouse is over it or holds it down. How that looks is the control's own business.
#pragma once

#include <QWidget>

class Pressable : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    bool isButton() const { return m_isButton; }

    /// Runs the command as a click does, when the control is a button and enabled.
    void press();

Q_SIGNALS:
    void Click();

protected:
    void makeButton(bool isButton);
    bool isPressed() const { return m_pressed; }
    bool isHovered() const { return m_hovered; }

    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    bool m_isButton = false;
    bool m_pressed = false;
    bool m_hovered = false;
};
