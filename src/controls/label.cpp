// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/label.h"

#include "controls/skin_style.h"
#include "controls/skin_window.h"
#include "skins/palette.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

Label::Label(QWidget *parent, const ControlSetup &setup, const QString &caption)
    : Pressable(parent), m_caption(caption), m_colour(QColor::fromRgb(palette::caption))
{
    setUpControl(*this, setup);
}

void Label::setCaption(const QString &caption)
{
    if (m_caption == caption)
        return;
    const bool isTurn = m_isMarquee && turns(caption);
    if (m_strip && isTurn)
        m_strip->turn = (m_strip->turn + 1) % caption.size();
    else
        m_strip.reset();
    m_caption = caption;
    if (m_isMarquee)
        repaint(lineRect()); // At once: its timer has woken the player for this, a paint event would wake it again.
    else
        update();
    if (QAccessible::isActive() && !isTurn) { // A turn says nothing new.
        QAccessibleEvent change(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&change);
    }
}

void Label::setButton(bool isButton)
{
    m_alignment = isButton ? Qt::AlignCenter : m_alignment;
    makeButton(isButton);
}

void Label::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void Label::setColour(const QColor &colour)
{
    m_colour = colour;
    m_strip.reset();
    update();
}

void Label::setElided(bool elided)
{
    m_elided = elided;
    update();
}

void Label::setMarquee()
{
    m_isMarquee = true;
    setAttribute(Qt::WA_OpaquePaintEvent);
}

// Is this the caption with its first character moved to the end?
bool Label::turns(const QString &caption) const
{
    return caption.size() == m_caption.size() && caption.startsWith(QStringView(m_caption).sliced(1)) &&
           caption.back() == m_caption.front();
}

// The band that a line of text takes.
QRect Label::lineRect() const
{
    const int height = fontMetrics().height();
    return {0, (rect().height() - height) / 2, width(), height};
}

void Label::layOut()
{
    QTextLayout layout(m_caption + m_caption, font());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    Strip strip;
    for (qsizetype at = 0; at <= m_caption.size(); ++at)
        strip.starts += line.cursorToX(static_cast<int>(at));
    const qreal density = devicePixelRatioF();
    const QSizeF size(line.naturalTextWidth() + 1, lineRect().height());
    strip.picture = QPixmap((size * density).toSize());
    strip.picture.setDevicePixelRatio(density);
    strip.picture.fill(Qt::transparent);
    QPainter painter(&strip.picture);
    painter.setPen(m_colour);
    layout.draw(&painter, QPointF(0, (size.height() - line.height()) / 2));
    m_strip = strip;
}

void Label::paintMarquee(QPainter &painter, const QRect &part)
{
    if (const auto *skin = qobject_cast<SkinWindow *>(window()))
        skin->paintSkin(painter, part, mapTo(skin, QPoint()));
    if (m_caption.isEmpty())
        return;
    if (!m_strip || m_strip->picture.devicePixelRatio() != devicePixelRatioF())
        layOut();
    const qreal density = m_strip->picture.devicePixelRatio();
    const qreal start = m_strip->starts[m_strip->turn];
    const QSizeF size(std::min<qreal>(m_strip->starts.back(), width()), lineRect().height());
    painter.drawPixmap(QRectF(lineRect().topLeft(), size), m_strip->picture,
                       QRectF(QPointF(std::round(start * density), 0), size * density));
}

void Label::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    if (m_isMarquee) {
        paintMarquee(painter, event->rect());
        return;
    }
    paintLight(painter);
    QColor colour = m_colour;
    if (!isEnabled())
        colour.setAlphaF(0.4F);
    painter.setPen(colour);
    const QRect place = isButton() && isPressed() ? rect().translated(1, 1) : rect();
    const QString text = m_elided ? fontMetrics().elidedText(m_caption, Qt::ElideRight, width()) : m_caption;
    painter.drawText(place, static_cast<int>(m_alignment) | Qt::TextSingleLine | Qt::TextIncludeTrailingSpaces, text);
    if (hasFocus())
        paintFocusRing(painter, rect());
}

// The light of the mouse on a button; its face is on the skin.
void Label::paintLight(QPainter &painter) const
{
    if (!isButton() || !isEnabled() || !(isPressed() || isHovered()))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(isPressed() ? palette::keyPressed : palette::keyHover));
    painter.drawRoundedRect(rect(), 3, 3);
}

void Label::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange) {
        m_strip.reset();
        update();
    }
    Pressable::changeEvent(event);
}
