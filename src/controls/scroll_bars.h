// SPDX-License-Identifier: GPL-3.0-or-later
// The sliders. The program's own setValue() fires Change() alone and leaves a thumb that the user holds where it is.
// Scroll() is the user's: the thumb dragged, the arrow keys, the wheel or an assistive tool; a click on the groove
// moves the thumb by a large change and fires Change() alone.
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

    /// A value that the new range leaves out moves to its nearest end: the program's doing too.
    void setRange(int smallest, int largest);

    void setSmallChange(int step) { setSingleStep(step); }
    void setLargeChange(int step) { setPageStep(step); }

    /// Assistive tools are told how far up the slider is, in percent, instead of its value.
    void setToldInPercent() { m_isToldInPercent = true; }

    /// What assistive tools are told for a value.
    int toldValue(int value) const;

    /// Scrolls to what they tell.
    void scrollToTold(double told);

Q_SIGNALS:
    void Scroll();
    void Change();

private:
    void tellChange();

    bool m_byProgram = false;
    bool m_byGroove = false;
    bool m_isToldInPercent = false;
};

/// A horizontal slider, its smallest value on the left.
class HScrollBar : public SliderBar
{
    Q_OBJECT

public:
    HScrollBar(QWidget *parent, const ControlSetup &setup);

    void setMin(int value) { setRange(value, maximum()); }
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
