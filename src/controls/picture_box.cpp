// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/picture_box.h"

#include "controls/shared_paint.h"
#include "controls/skin.h"

#include <QPainter>

namespace
{
// The whole pixel of the screen that is nearest to the corner of what is painted: there a picture stays sharp.
QPointF nearestPixel(const QPainter &painter)
{
    const QTransform toScreen = painter.deviceTransform();
    return toScreen.inverted().map(QPointF(toScreen.map(QPointF()).toPoint()));
}
} // namespace

PictureBox::PictureBox(QWidget *parent, const ControlSetup &setup) : Pressable(parent)
{
    setUpControl(*this, setup);
}

void PictureBox::setPicture(Picture normal)
{
    m_pictures.fill(KeptPicture(normal));
    update();
}

void PictureBox::showPictureOf(PictureBox &other)
{
    other.pixmap(Look::Normal);
    m_pictures = other.m_pictures;
    update();
}

void PictureBox::setButton(Picture normal, Picture hovered, Picture pressed, const QString &glyph)
{
    m_pictures = {KeptPicture(normal), KeptPicture(hovered), KeptPicture(pressed), KeptPicture(pressed)};
    m_glyph = glyph;
    makeButton(true);
}

void PictureBox::setOnPicture(Picture on)
{
    m_pictures.back() = KeptPicture(on);
}

QImage PictureBox::image() const
{
    return m_pictures.front().which() == Picture::Count ? QImage() : pictureImage(m_pictures.front().which());
}

void PictureBox::setShape(const QRegion &region)
{
    if (region.isEmpty()) {
        clearMask();
        return;
    }
    QRegion mask = region;
    if (const qreal density = devicePixelRatioF(); density != 1 && density != 2) {
        // The picture is scaled to the screen, whose pixels do not meet the shape's: none of its edge may be cut off.
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)})
            mask += region.translated(step);
    }
    setMask(mask);
}

PictureBox::Look PictureBox::look() const
{
    if (!isButton() || !isEnabled())
        return Look::Normal;
    return isPressed() ? Look::Pressed : isOn() ? Look::On : isHovered() ? Look::Hovered : Look::Normal;
}

const QPixmap &PictureBox::pixmap(Look look)
{
    KeptPicture &kept = m_pictures.at(static_cast<std::size_t>(look));
    kept.keep(devicePixelRatioF());
    return kept.pixmap();
}

void PictureBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (const QPixmap &shown = pixmap(look()); !shown.isNull())
        painter.drawPixmap(nearestPixel(painter), shown);
    else if (isButton()) {
        paintButtonFace(painter, rect(), isPressed() || isOn() ? ButtonLook::Pressed : ButtonLook::Normal);
        painter.setPen(skinColour(Colour::warmWhite));
        painter.drawText(rect(), Qt::AlignCenter, m_glyph);
    }
    if (hasFocus())
        paintFocusRing(painter, rect().adjusted(1, 1, -1, -1), mask().isEmpty() ? Ring::Plain : Ring::Round);
}
