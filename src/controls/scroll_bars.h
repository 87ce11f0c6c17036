// SPDX-License-Identifier: GPL-3.0-or-later
// The sliders. Scroll() is the user's: the thumb dragged, a key, the wheel or an assistive tool. Whatever else moves
// the thumb fires Change() alone: the program's own setValue(), which leaves a thumb that the user holds where it is,
// and the mouse on the groove, which moves it by a large change, again and again while the button is held.
#pragma once

#include "controls/control.h"

#include <QScrollBar>

class SliderBar : public QScrollBar
{
    Q_OBJECT

public:
    SliderBar(Qt::Orientation orientation, QWidget *parent, const ControlSetup &setup);

    int Value() const { return value(); }
    void setValue(int value);

    void setSmallChange(int step) { setSingleStep(step); }
    void setLargeChange(int step) { setPageStep(step); }

    /// How far a notch of the wheel goes, when that is not a large change.
    void setWheelStep(int step) { m_wheelStep = step; }

    /// Assistive tools are told how far up the slider is, in percent, instead of its value.
    void setAccessibleInPercent() { m_isAccessibleInPercent = true; }

    /// What assistive tools are told for a value.
    int accessibleValue(int value) const;

    /// Scrolls to what they tell.
    void scrollToAccessible(double told);

    /// Scrolls as a key or the wheel does.
    void scrollTo(int value);

Q_SIGNALS:
    void Scroll();
    void Change();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void notifyChange();

    bool m_byUser = false;
    bool m_isAccessibleInPercent = false;
    int m_wheelStep = 0;
    int m_turned = 0; // What the wheel was turned by and the thumb has not moved by yet.
};

/// A horizontal slider, its smallest value on the left.
class HScrollBar : public SliderBar
{
    Q_OBJECT

public:
    HScrollBar(QWidget *parent, const ControlSetup &setup);

    void setMax(int value);
    int Min() const { return minimum(); }
    int Max() const { return maximum(); }
};

/// A vertical slider whose top is its largest value (0 dB) and whose bottom is its smallest.
class VScrollBar : public SliderBar
{
    Q_OBJECT

public:
    VScrollBar(QWidget *parent, const ControlSetup &setup, int top, int bottom);
};
