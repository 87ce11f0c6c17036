// SPDX-License-Identifier: GPL-3.0-or-later
// What every control has: its short name as object name, a fixed plain description for assistive tools, its place. And
// what every control that can be a button shares.
#pragma once

#include <QRect>
#include <QString>
#include <QWidget>

#include <optional>

struct ControlSetup {
    QString name;        // The short name of the design ("File1"); tests find the control by it.
    QString description; // Plain English, never changing ("Songs"); assistive tools read it and find the control by it.
    QRect place;         // In logical pixels of the window.
};

/// Gives a control its name, its description and its place.
void setUpControl(QWidget &control, const ControlSetup &setup);

/// Has the key gone down by being held? X11 tells a repeat by the time alone, that of the release before, and under
/// load Qt takes the two for a hand's.
bool isRepeat(const QKeyEvent &event);

/// Is it one of the two keys that mean "do it", pressed and not repeating by itself?
bool isEnter(const QKeyEvent &event);

/// Logical pixels of a length in twips.
constexpr int fromTwips(int twips)
{
    return twips / 15;
}

/// A control that can be a button: a left click that ends where it began, Enter and Space run its command, and it knows
/// whether the mouse is over it or presses it. How that looks is the control's own business.
class Pressable : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    bool isButton() const { return m_isButton; }

    /// A button that stays on until its command is run again, or somebody else ends what it began; told to assistive
    /// tools as a mark that is set or not.
    void setOn(bool on);
    bool isOn() const { return m_on.value_or(false); }
    bool isSwitch() const { return m_on.has_value(); }

    /// Another control says and does the same: assistive tools are told of that one alone.
    void setUntold() { m_isUntold = true; }
    bool isUntold() const { return m_isUntold; }

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
    std::optional<bool> m_on; // Nothing for a button that is no switch.
    bool m_isUntold = false;
    bool m_isButton = false;
    bool m_pressed = false;
    bool m_hovered = false;
};
