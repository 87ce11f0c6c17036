// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/scroll_bars.h"

#include <QScopedValueRollback>

SliderBar::SliderBar(Qt::Orientation orientation, QWidget *parent, const ControlSetup &setup)
    : QScrollBar(orientation, parent)
{
    setUpControl(*this, setup);
    setFocusPolicy(Qt::TabFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    setInvertedControls(false); // Up and Right make the value larger, by key and by wheel.
    connect(this, &QAbstractSlider::actionTriggered, this,
            [this](int action) { m_byGroove = action == SliderPageStepAdd || action == SliderPageStepSub; });
    connect(this, &QAbstractSlider::valueChanged, this, &SliderBar::tellChange);
}

void SliderBar::setValue(int value)
{
    const QScopedValueRollback byProgram(m_byProgram, true);
    if (!isSliderDown())
        QScrollBar::setValue(value);
}

void SliderBar::setRange(int smallest, int largest)
{
    const QScopedValueRollback byProgram(m_byProgram, true);
    QScrollBar::setRange(smallest, largest);
}

int SliderBar::toldValue(int value) const
{
    const int range = maximum() - minimum();
    return !m_isToldInPercent ? value : range == 0 ? 0 : qRound(100.0 * (value - minimum()) / range);
}

void SliderBar::scrollToTold(double told)
{
    QScrollBar::setValue(qRound(m_isToldInPercent ? minimum() + told * (maximum() - minimum()) / 100 : told));
}

void SliderBar::tellChange()
{
    const bool byGroove = std::exchange(m_byGroove, false);
    Q_EMIT Change();
    if (!m_byProgram && !byGroove)
        Q_EMIT Scroll();
}

HScrollBar::HScrollBar(QWidget *parent, const ControlSetup &setup) : SliderBar(Qt::Horizontal, parent, setup) {}

void HScrollBar::setMax(int value)
{
    if (value != maximum() && !isSliderDown())
        setRange(minimum(), std::max(value, minimum()));
}

VScrollBar::VScrollBar(QWidget *parent, const ControlSetup &setup, int top, int bottom)
    : SliderBar(Qt::Vertical, parent, setup)
{
    setRange(bottom, top);
    setInvertedAppearance(true);
}
