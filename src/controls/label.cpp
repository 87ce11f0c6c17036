// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/label.h"

#include "controls/shared_paint.h"
#include "controls/skin.h"
#include "controls/skin_window.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

Label::Label(QWidget *parent, const ControlSetup &setup, const QString &caption)
    : Pressable(parent), m_caption(caption), m_colour(Colour::caption), m_unturned(caption)
{
    setUpControl(*this, setup);
}

void Label::setCaption(const QString &caption)
{
    if (m_caption == caption)
        return;
    const bool isTurn = m_isMarquee && turns(caption);
    if (isTurn)
        m_turns = (m_turns + 1) % caption.size();
    else
        setUnturned(caption);
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

QString Label::words() const
{
    return m_isMarquee ? m_unturned.trimmed() : m_caption;
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

void Label::setColour(Colour colour)
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

void Label::setUnturned(const QString &caption)
{
    m_unturned = caption;
    m_turns = 0;
    m_strip.reset();
}

// The order on the screen counts, not that in the text: words in a script read from the right run against the others.
void Label::layOut()
{
    const bool fromRight = m_unturned.isRightToLeft();
    QTextOption option;
    option.setTextDirection(fromRight ? Qt::RightToLeft : Qt::LeftToRight);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    QTextLayout layout(m_unturned, font());
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    Strip strip;
    strip.width = line.naturalTextWidth();
    for (int at = 0; at < m_unturned.size(); ++at) {
        const auto [left, right] = std::minmax({line.cursorToX(at), line.cursorToX(at, QTextLine::Trailing)});
        strip.moves += fromRight ? strip.width - right : left;
    }
    std::sort(strip.moves.begin(), strip.moves.end());
    const qreal density = devicePixelRatioF();
    const QSizeF size(2 * strip.width + 1, lineRect().height());
    strip.picture = QPixmap((size * density).toSize());
    strip.picture.setDevicePixelRatio(density);
    strip.picture.fill(Qt::transparent);
    QPainter painter(&strip.picture);
    painter.setPen(skinColour(m_colour));
    const qreal top = (size.height() - line.height()) / 2;
    for (const qreal start : {0.0, strip.width})
        layout.draw(&painter, QPointF(start, top));
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
    const bool fromRight = m_unturned.isRightToLeft();
    const qreal density = m_strip->picture.devicePixelRatio();
    const QRect line = lineRect();
    const QSizeF size(std::min<qreal>(m_strip->width, width()), line.height());
    const qreal moved = m_strip->moves[m_turns];
    const qreal start = fromRight ? 2 * m_strip->width - moved - size.width() : moved;
    const QPointF place(fromRight ? width() - size.width() : 0, line.y());
    painter.drawPixmap(QRectF(place, size), m_strip->picture,
                       QRectF(QPointF(std::round(start * density), 0), size * density));
}

void Label::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    if (m_isMarquee) {
        paintMarquee(painter, event->rect());
        return;
    }
    if (isButton())
        paintLight(painter);
    QColor colour = skinColour(m_colour);
    if (!isEnabled())
        colour.setAlphaF(0.4F);
    painter.setPen(colour);
    const QRect place = isButton() && isPressed() ? rect().translated(1, 1) : rect();
    const QString text = m_elided ? fontMetrics().elidedText(m_caption, Qt::ElideRight, width()) : m_caption;
    painter.drawText(place, static_cast<int>(m_alignment) | Qt::TextSingleLine | Qt::TextIncludeTrailingSpaces, text);
    if (hasFocus())
        paintFocusRing(painter, rect());
}

// The light of the mouse on a button, or the shade on one that cannot be pressed; its face is on the skin.
void Label::paintLight(QPainter &painter) const
{
    if (isEnabled() && !isPressed() && !isHovered())
        return;
    QColor shade = skinColour(Colour::graphite);
    shade.setAlphaF(0.7F);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(!isEnabled() ? shade : skinColour(isPressed() ? Colour::keyPressed : Colour::keyHover));
    painter.drawRoundedRect(rect(), 3, 3);
}

void Label::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange ||
        event->type() == QEvent::StyleChange) {
        m_strip.reset();
        update();
    }
    Pressable::changeEvent(event);
}
