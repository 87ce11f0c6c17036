// A borderless window that is a picture.
#include "controls/skin_window.h"

#include "skins/palette.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{
void paintPlainPanel(QPainter &painter, const QRect &part, const QRect &window)
{
    painter.fillRect(part, QColor::fromRgb(palette::graphite));
    painter.setPen(QColor::fromRgb(palette::graphiteLight));
    painter.drawRect(window.adjusted(0, 0, -1, -1));
}
} // namespace

SkinWindow::SkinWindow(const QString &name, const QString &caption, Picture skin, QSize size)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), m_skin(skin)
{
    setObjectName(name);
    setWindowTitle(caption);
    setFixedSize(size);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QColor SkinWindow::skinColourAt(const QPoint &place) const
{
    const QImage skin = pictureImage(m_skin);
    return skin.valid(place) ? skin.pixelColor(place) : QColor::fromRgb(palette::graphite);
}

void SkinWindow::DragBySkin(const QMouseEvent &event)
{
    if (QGuiApplication::platformName().startsWith(u"wayland"_s) && windowHandle())
        windowHandle()->startSystemMove(); // A client cannot place its windows there.
    else
        m_grip = event.globalPosition().toPoint() - frameGeometry().topLeft();
}

void SkinWindow::paintEvent(QPaintEvent *event)
{
    if (!m_background)
        m_background = picture(m_skin, devicePixelRatioF());
    QPainter painter(this);
    for (const QRect &part : event->region())
        paintSkin(painter, part, {});
    if (!std::exchange(m_painted, true))
        QMetaObject::invokeMethod(this, &SkinWindow::firstPainted, Qt::QueuedConnection);
}

void SkinWindow::paintSkin(QPainter &painter, const QRect &part, const QPoint &offset) const
{
    if (!m_background)
        return;
    const qreal density = m_background->devicePixelRatio();
    const QRect place = part.translated(offset);
    if (m_background->deviceIndependentSize().toSize() == size())
        painter.drawPixmap(QRectF(part), *m_background, QRectF(place.topLeft() * density, place.size() * density));
    else
        paintPlainPanel(painter, part, rect().translated(-offset));
}

void SkinWindow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        DragBySkin(*event);
}

void SkinWindow::mouseMoveEvent(QMouseEvent *event)
{
    if (m_grip && event->buttons() & Qt::LeftButton)
        move(event->globalPosition().toPoint() - *m_grip);
}

void SkinWindow::mouseReleaseEvent(QMouseEvent *)
{
    m_grip.reset();
}

void SkinWindow::showEvent(QShowEvent *)
{
    noteSeen();
}

void SkinWindow::hideEvent(QHideEvent *)
{
    noteSeen();
}

void SkinWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        noteSeen();
}

void SkinWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    Q_EMIT closeRequested();
}

void SkinWindow::noteSeen()
{
    const bool seen = isVisible() && !isMinimized();
    if (std::exchange(m_seen, seen) != seen)
        Q_EMIT seenChanged(seen);
}
