// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/control.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace
{
// Which key was let go last, in any window, and when.
struct LastRelease : QObject {
    LastRelease() : QObject(qApp) { qApp->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyRelease) {
            key = static_cast<QKeyEvent *>(event)->key();
            time = static_cast<QKeyEvent *>(event)->timestamp();
        }
        return false;
    }

    int key = 0;
    quint64 time = 0;
};

const LastRelease &lastRelease()
{
    static const auto *release = new LastRelease;
    return *release;
}
} // namespace

void setUpControl(QWidget &control, const ControlSetup &setup)
{
    lastRelease(); // Watched from the first control on.
    control.setObjectName(setup.name);
    control.setAccessibleDescription(setup.description);
    control.setAccessibleName(setup.description); // Unless its own text is its name.
    control.setGeometry(setup.place);
}

bool isRepeat(const QKeyEvent &event)
{
    const LastRelease &last = lastRelease();
    const bool isOfClock = last.time != 0 && last.time == event.timestamp();
    return event.isAutoRepeat() || (event.key() == last.key && isOfClock);
}

bool isEnter(const QKeyEvent &event)
{
    return !isRepeat(event) && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}

void Pressable::press()
{
    if (m_isButton && isEnabled())
        Q_EMIT Click();
}

void Pressable::setOn(bool on)
{
    const bool isNews = m_on != on;
    m_on = on;
    if (!isNews)
        return;
    update();
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void Pressable::makeButton(bool isButton)
{
    m_isButton = isButton;
    setFocusPolicy(isButton ? Qt::TabFocus : Qt::NoFocus);
    setAttribute(Qt::WA_Hover, isButton); // Painted anew when the mouse comes or goes.
    update();
}

void Pressable::mousePressEvent(QMouseEvent *event)
{
    if (!m_isButton || event->button() != Qt::LeftButton) {
        event->ignore(); // The skin below may be dragged by a plain text or picture on it.
        return;
    }
    m_pressed = true;
    update();
}

void Pressable::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_pressed || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_pressed = false;
    update();
    if (rect().contains(event->position().toPoint()))
        press();
}

void Pressable::keyPressEvent(QKeyEvent *event)
{
    const bool runs = isEnter(*event) || (event->key() == Qt::Key_Space && !isRepeat(*event));
    if (m_isButton && runs)
        press();
    else
        QWidget::keyPressEvent(event);
}

void Pressable::enterEvent(QEnterEvent *)
{
    m_hovered = true;
}

void Pressable::leaveEvent(QEvent *)
{
    m_hovered = false;
}
