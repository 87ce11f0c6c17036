// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/frame.h"

#include "controls/fonts.h"
#include "skins/palette.h"

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
    m_picture = picture;
    m_isCovering = true;
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
    if (m_isCovering && m_picture != Picture::Count)
        keepPicture(m_background, m_picture, devicePixelRatioF());
    if (m_background && !m_background->isNull())
        painter.drawPixmap(0, 0, *m_background);
    else if (m_isCovering)
        painter.fillRect(rect().adjusted(plateRim, plateRim, -plateRim, -plateRim), QColor::fromRgb(palette::graphite));
    painter.setPen(QColor::fromRgb(palette::captionDim));
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
    painter.fillRect(QRectF(0, 0, m_fraction * width(), height()), QColor::fromRgb(palette::accent));
}
