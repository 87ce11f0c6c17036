// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/scroll_bars.h"

#include <QAccessible>
#include <QScopedValueRollback>
#include <QSignalBlocker>
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
    else if (m_words)
        moveThumb(value);
    else
        QScrollBar::setValue(value);
}

// QAbstractSlider tells assistive tools of each new value: the thumb alone moves.
void SliderBar::moveThumb(int value)
{
    const int before = Value();
    setTracking(false);
    setSliderPosition(value);
    setTracking(true);
    if (Value() != before)
        notifyChange();
}

void SliderBar::catchUp()
{
    const QSignalBlocker quiet(this);
    QScrollBar::setValue(sliderPosition());
}

void SliderBar::notifyPlace()
{
    if (!m_words || !QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void SliderBar::focusInEvent(QFocusEvent *event)
{
    catchUp();
    notifyPlace();
    QScrollBar::focusInEvent(event);
}

void SliderBar::mousePressEvent(QMouseEvent *event)
{
    catchUp();
    QScrollBar::mousePressEvent(event);
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
    catchUp();
    QScrollBar::setValue(value);
}

void SliderBar::keyPressEvent(QKeyEvent *event)
{
    const QScopedValueRollback byUser(m_byUser, true);
    catchUp();
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
        scrollTo(Value() + steps);
}

void SliderBar::notifyChange()
{
    const bool byUser = m_byUser || isSliderDown();
    if (byUser)
        m_missed.reset();
    Q_EMIT Change();
    if (!byUser)
        return;
    Q_EMIT Scroll();
    notifyPlace();
}

HScrollBar::HScrollBar(QWidget *parent, const ControlSetup &setup) : SliderBar(Qt::Horizontal, parent, setup) {}

void HScrollBar::setMax(int value)
{
    if (value == maximum() || isSliderDown())
        return;
    catchUp();
    setRange(minimum(), std::max(value, minimum()));
}

VScrollBar::VScrollBar(QWidget *parent, const ControlSetup &setup, int top, int bottom)
    : SliderBar(Qt::Vertical, parent, setup)
{
    setRange(bottom, top);
    setInvertedAppearance(true);
}
