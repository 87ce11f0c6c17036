// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/label.h"

#include "controls/shared_paint.h"
#include "controls/skin.h"
#include "controls/skin_window.h"

#include <QAccessible>
#include <QBackingStore>
#include <QPaintEvent>
#include <QPainter>
#include <QTextLayout>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace
{
// The rows of a picture that show anything: the first, and the one after the last.
std::pair<int, int> inkRows(const QImage &picture)
{
    const auto isBlank = [&picture](int row) {
        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(row));
        return std::all_of(pixels, pixels + picture.width(), [](QRgb pixel) { return qAlpha(pixel) == 0; });
    };
    int first = 0;
    int end = picture.height();
    while (first < end && isBlank(first))
        ++first;
    while (end > first && isBlank(end - 1))
        --end;
    return {first, end};
}
} // namespace

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
    if (isTurn && m_strip)
        paintTurn();
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

void Label::setUnturned(const QString &caption)
{
    m_unturned = caption;
    m_turns = 0;
    m_strip.reset();
}

// The order on the screen counts, not that in the text: words in a script read from the right run against the others.
void Label::layOut(qreal density)
{
    Strip strip;
    strip.isFromRight = m_unturned.isRightToLeft();
    QTextOption option;
    option.setTextDirection(strip.isFromRight ? Qt::RightToLeft : Qt::LeftToRight);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    QTextLayout layout(m_unturned, font());
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    strip.width = line.naturalTextWidth();
    for (int at = 0; at < m_unturned.size(); ++at) {
        const auto [left, right] = std::minmax({line.cursorToX(at), line.cursorToX(at, QTextLine::Trailing)});
        strip.moves += strip.isFromRight ? strip.width - right : left;
    }
    std::sort(strip.moves.begin(), strip.moves.end());
    const int lineHeight = fontMetrics().height();
    strip.line = {0, (height() - lineHeight) / 2, width(), lineHeight};
    const QSizeF size(2 * strip.width + 1, lineHeight);
    strip.picture = QPixmap((size * density).toSize());
    strip.picture.setDevicePixelRatio(density);
    strip.picture.fill(Qt::transparent);
    QPainter painter(&strip.picture);
    painter.setPen(skinColour(m_colour));
    const qreal top = (size.height() - line.height()) / 2;
    for (const qreal start : {0.0, strip.width})
        layout.draw(&painter, QPointF(start, top));
    painter.end();
    const auto [first, end] = inkRows(strip.picture.toImage());
    const int inkTop = qFloor((std::floor(strip.line.y() * density) + first) / density);
    const int inkEnd = qCeil((std::ceil(strip.line.y() * density) + end) / density);
    strip.ink = {0, inkTop, width(), inkEnd - inkTop};
    m_strip = strip;
}

// Straight into the picture of the window on the screen, in which nothing lies over the label: many times a second, the
// way through the window and what lies in it would cost more than the turn.
void Label::paintTurn()
{
    QBackingStore *store = backingStore();
    if (!isVisible() || !store || !store->window()->isExposed())
        return update();
    const QPoint place = mapTo(window(), QPoint());
    const QRect part = m_strip->ink.translated(place);
    store->beginPaint(part);
    QPainter painter(store->paintDevice());
    painter.setClipRect(part);
    painter.translate(place);
    paintMarquee(painter, m_strip->ink);
    painter.end();
    store->endPaint();
    store->flush(part);
}

void Label::paintMarquee(QPainter &painter, const QRect &part)
{
    if (const auto *skin = qobject_cast<SkinWindow *>(window()))
        skin->paintSkin(painter, part, mapTo(skin, QPoint()));
    if (m_caption.isEmpty())
        return;
    const qreal density = painter.device()->devicePixelRatioF();
    if (!m_strip || m_strip->picture.devicePixelRatio() != density)
        layOut(density);
    const QSizeF size(std::min<qreal>(m_strip->width, width()), m_strip->line.height());
    const qreal moved = m_strip->moves[m_turns];
    const qreal start = m_strip->isFromRight ? 2 * m_strip->width - moved - size.width() : moved;
    const QPointF place(m_strip->isFromRight ? width() - size.width() : 0, m_strip->line.y());
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
