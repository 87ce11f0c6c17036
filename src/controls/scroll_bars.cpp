// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/scroll_bars.h"

#include <QScopedValueRollback>
#include <QWheelEvent>

#include <cmath>
#include <utility>

SliderBar::SliderBar(Qt::Orientation orientation, QWidget *parent, const ControlSetup &setup)
    : QScrollBar(orientation, parent)
{
    setUpControl(*this, setup);
    setFocusPolicy(Qt::TabFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    setInvertedControls(false); // Up and Right make the value larger, by key and by wheel.
    connect(this, &QAbstractSlider::valueChanged, this, &SliderBar::notifyChange);
    connect(this, &QAbstractSlider::sliderReleased, this, [this] {
        if (const auto missed = std::exchange(m_missed, {}))
            setValue(*missed);
    });
}

void SliderBar::setValue(int value)
{
    const QScopedValueRollback byUser(m_byUser, false);
    if (isSliderDown())
        m_missed = value;
    else
        QScrollBar::setValue(value);
}

int SliderBar::accessibleValue(int value) const
{
    const int range = maximum() - minimum();
    return !m_isAccessibleInPercent ? value : range == 0 ? 0 : qRound(100.0 * (value - minimum()) / range);
}

void SliderBar::scrollToAccessible(double accessible)
{
    scrollTo(qRound(m_isAccessibleInPercent ? minimum() + accessible * (maximum() - minimum()) / 100 : accessible));
}

void SliderBar::scrollTo(int value)
{
    const QScopedValueRollback byUser(m_byUser, true);
    QScrollBar::setValue(value);
}

void SliderBar::keyPressEvent(QKeyEvent *event)
{
    const QScopedValueRollback byUser(m_byUser, true);
    QScrollBar::keyPressEvent(event);
}

// Fine wheels turn by less than a notch at a time.
void SliderBar::wheelEvent(QWheelEvent *event)
{
    event->accept();
    const QPoint angle = event->angleDelta();
    const int turned = std::abs(angle.x()) > std::abs(angle.y()) ? -angle.x() : angle.y();
    m_turned += turned * (m_wheelStep == 0 ? pageStep() : m_wheelStep);
    const int steps = m_turned / QWheelEvent::DefaultDeltasPerStep;
    m_turned -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0 && !isSliderDown())
        scrollTo(value() + steps);
}

void SliderBar::notifyChange()
{
    const bool byUser = m_byUser || isSliderDown();
    if (byUser)
        m_missed.reset();
    Q_EMIT Change();
    if (byUser)
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
