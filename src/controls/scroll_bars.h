// SPDX-License-Identifier: GPL-3.0-or-later
// The sliders. Scroll() is the user's: the thumb dragged, a key, the wheel or an assistive tool. Whatever else moves
// the thumb fires Change() alone: the program's own setValue(), which waits until the user lets go of the thumb, and
// the mouse on the groove, which moves it by a large change, again and again while the button is down.
#pragma once

#include "controls/control.h"

#include <QScrollBar>

#include <functional>
#include <optional>

class SliderBar : public QScrollBar
{
    Q_OBJECT

public:
    SliderBar(Qt::Orientation orientation, QWidget *parent, const ControlSetup &setup);

    int Value() const { return sliderPosition(); }
    void setValue(int value);

    void setSmallChange(int step) { setSingleStep(step); }
    void setLargeChange(int step) { setPageStep(step); }

    /// How far a notch of the wheel goes, when that is not a large change.
    void setWheelStep(int step) { m_wheelStep = step; }

    /// The accessible value is how far up the slider is, in percent, instead of the value itself.
    void setAccessibleInPercent() { m_isAccessibleInPercent = true; }

    /// Where the slider is, in words: part of its accessible name, told when the keyboard comes or the user has moved
    /// it. The program moves such a slider without a word, since that happens all the time.
    void setPlaceInWords(std::function<QString()> words) { m_words = std::move(words); }
    QString placeInWords() const { return m_words ? m_words() : QString(); }

    /// The accessible value that stands for a value.
    int accessibleValue(int value) const;

    /// Scrolls to an accessible value.
    void scrollToAccessible(double accessible);

    /// Scrolls as a key or the wheel does.
    void scrollTo(int value);

Q_SIGNALS:
    void Scroll();
    void Change();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

    /// Makes the value what the thumb shows: the program's own moves only move the thumb where they are told in words.
    void catchUp();

private:
    void moveThumb(int value);
    void notifyChange();
    void notifyPlace();

    std::function<QString()> m_words;
    bool m_byUser = false;
    std::optional<int> m_missed; // Set by the program while the user held the thumb, and not moved since.
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
