// A picture on the skin.
#include "controls/picture_box.h"

#include "controls/skin_style.h"
#include "skins/palette.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

PictureBox::PictureBox(QWidget *parent, const ControlSetup &setup) : QWidget(parent)
{
    setUpControl(*this, setup);
}

void PictureBox::setPicture(Picture normal)
{
    m_pictures.fill(normal);
    m_pixmaps = {};
    update();
}

void PictureBox::showPictureOf(PictureBox &other)
{
    other.pixmap(Look::Normal);
    m_pictures = other.m_pictures;
    m_pixmaps = other.m_pixmaps;
    update();
}

void PictureBox::setButton(Picture normal, Picture hovered, Picture pressed, const QString &glyph)
{
    m_pictures = {normal, hovered, pressed};
    m_pixmaps = {};
    m_glyph = glyph;
    m_isButton = true;
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
}

QImage PictureBox::image() const
{
    return m_pictures[0] == Picture::Count ? QImage() : pictureImage(m_pictures[0]);
}

void PictureBox::setShape(const QRegion &region)
{
    if (region.isEmpty())
        clearMask();
    else
        setMask(region);
}

void PictureBox::press()
{
    if (isEnabled())
        Q_EMIT Click();
}

PictureBox::Look PictureBox::look() const
{
    if (!m_isButton || !isEnabled())
        return Look::Normal;
    return m_pressed ? Look::Pressed : m_hovered ? Look::Hovered : Look::Normal;
}

const QPixmap &PictureBox::pixmap(Look look)
{
    const auto which = static_cast<std::size_t>(look);
    std::optional<QPixmap> &kept = m_pixmaps.at(which);
    if (!kept)
        kept = m_pictures.at(which) == Picture::Count ? QPixmap() : picture(m_pictures.at(which), devicePixelRatioF());
    return *kept;
}

void PictureBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (const QPixmap &shown = pixmap(look()); !shown.isNull())
        painter.drawPixmap(rect(), shown);
    else if (m_isButton) {
        paintButtonFace(painter, rect(), m_pressed ? ButtonLook::Pressed : ButtonLook::Normal);
        painter.setPen(QColor::fromRgb(palette::warmWhite));
        painter.drawText(rect(), Qt::AlignCenter, m_glyph);
    }
    if (hasFocus())
        paintFocusRing(painter, rect().adjusted(1, 1, -1, -1));
}

void PictureBox::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(m_isButton && event->button() == Qt::LeftButton);
    m_pressed = event->isAccepted();
    update();
}

void PictureBox::mouseReleaseEvent(QMouseEvent *event)
{
    const bool wasPressed = m_pressed && event->button() == Qt::LeftButton;
    event->setAccepted(wasPressed);
    if (!wasPressed)
        return;
    m_pressed = false;
    update();
    if (rect().contains(event->position().toPoint()))
        press();
}

void PictureBox::keyPressEvent(QKeyEvent *event)
{
    const bool runs = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (m_isButton && runs)
        press();
    else
        QWidget::keyPressEvent(event);
}

void PictureBox::enterEvent(QEnterEvent *)
{
    m_hovered = true;
    update();
}

void PictureBox::leaveEvent(QEvent *)
{
    m_hovered = false;
    update();
}
