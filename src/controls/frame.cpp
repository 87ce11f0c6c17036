// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/frame.h"

#include "controls/fonts.h"
#include "controls/skin.h"

#include <QPainter>

namespace
{
constexpr QPoint captionPlace(12, 4);
constexpr int captionPixels = 11;

constexpr int plateRim = 3; // The skin goes on showing it.
} // namespace

Frame::Frame(QWidget *parent, const ControlSetup &setup, const QString &caption) : QWidget(parent), m_caption(caption)
{
    setUpControl(*this, setup);
    setFont(fonts::font(fonts::Face::SmallFonts, captionPixels));
    if (!caption.isEmpty())
        setAccessibleName(caption);
}

void Frame::setPicture(Picture picture)
{
    m_background = KeptPicture(picture);
    m_isCovering = true;
}

void Frame::renewPicture()
{
    keepReadable(m_background, *this);
}

void Frame::setPlate()
{
    m_isCovering = true;
}

ControlSetup Frame::inside(ControlSetup setup) const
{
    setup.place.translate(-pos());
    return setup;
}

void Frame::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    renewPicture();
    if (!m_background.pixmap().isNull())
        painter.drawPixmap(0, 0, m_background.pixmap());
    else if (m_isCovering)
        painter.fillRect(rect().adjusted(plateRim, plateRim, -plateRim, -plateRim), skinColour(Colour::graphite));
    painter.setPen(skinColour(Colour::captionDim));
    painter.drawText(rect().adjusted(captionPlace.x(), captionPlace.y(), 0, 0), Qt::AlignLeft | Qt::AlignTop,
                     m_caption);
}

ProgressBar::ProgressBar(QWidget *parent, const ControlSetup &setup) : QWidget(parent)
{
    setUpControl(*this, setup);
}

void ProgressBar::setFraction(double fraction)
{
    m_fraction = fraction;
    update();
}

void ProgressBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(QRectF(0, 0, m_fraction * width(), height()), skinColour(Colour::accent));
}
