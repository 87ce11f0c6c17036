// A text on the skin.
#include "controls/label.h"

#include "controls/skin_style.h"
#include "skins/palette.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

Label::Label(QWidget *parent, const ControlSetup &setup, const QString &caption)
    : QWidget(parent), m_caption(caption), m_colour(QColor::fromRgb(palette::caption))
{
    setUpControl(*this, setup);
}

void Label::setCaption(const QString &caption)
{
    if (m_caption == caption)
        return;
    m_caption = caption;
    update();
    if (QAccessible::isActive()) {
        QAccessibleEvent change(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&change);
    }
}

void Label::setButton(bool isButton)
{
    m_isButton = isButton;
    m_alignment = isButton ? Qt::AlignCenter : m_alignment;
    setFocusPolicy(isButton ? Qt::TabFocus : Qt::NoFocus);
    setAttribute(Qt::WA_Hover, isButton);
    update();
}

void Label::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void Label::setColour(const QColor &colour)
{
    m_colour = colour;
    update();
}

void Label::setElided(bool elided)
{
    m_elided = elided;
    update();
}

void Label::press()
{
    if (m_isButton && isEnabled())
        Q_EMIT Click();
}

void Label::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintFace(painter);
    QColor colour = m_colour;
    if (!isEnabled())
        colour.setAlphaF(0.4F);
    painter.setPen(colour);
    const QRect place = m_isButton && m_pressed ? rect().translated(1, 1) : rect();
    const QString text = m_elided ? fontMetrics().elidedText(m_caption, Qt::ElideRight, width()) : m_caption;
    painter.drawText(place, static_cast<int>(m_alignment) | Qt::TextSingleLine | Qt::TextIncludeTrailingSpaces, text);
    if (hasFocus())
        paintFocusRing(painter, rect());
}

void Label::paintFace(QPainter &painter) const
{
    if (!m_isButton || !isEnabled() || !(m_pressed || m_hovered))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(m_pressed ? palette::keyPressed : palette::keyHover));
    painter.drawRoundedRect(rect(), 3, 3);
}

void Label::mousePressEvent(QMouseEvent *event)
{
    if (!m_isButton || event->button() != Qt::LeftButton) {
        event->ignore(); // The skin below may be dragged by a plain text on it.
        return;
    }
    m_pressed = true;
    update();
}

void Label::mouseReleaseEvent(QMouseEvent *event)
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

void Label::keyPressEvent(QKeyEvent *event)
{
    const bool runs = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (m_isButton && runs)
        press();
    else
        QWidget::keyPressEvent(event);
}

void Label::enterEvent(QEnterEvent *)
{
    m_hovered = true;
}

void Label::leaveEvent(QEvent *)
{
    m_hovered = false;
}

void Label::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange)
        update();
    QWidget::changeEvent(event);
}
