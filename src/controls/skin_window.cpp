// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/skin_window.h"

#include "base/window_place.h"
#include "controls/list_box.h"
#include "controls/readable.h"
#include "controls/skin.h"
#include "platform/x11_windows.h"

#include <QApplication>
#include <QBackingStore>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
void paintPlainPanel(QPainter &painter, const QRect &part, const QWidget &window, const QPoint &offset)
{
    painter.fillRect(part, skinColour(Colour::graphite));
    painter.save();
    painter.translate(-offset);
    paintGrounds(painter, window);
    painter.setPen(skinColour(Colour::graphiteLight));
    painter.drawRect(window.rect().adjusted(0, 0, -1, -1));
    painter.restore();
}

// Where the window system has the window's corner, whatever Qt believes.
QPoint cornerSeen(const QMouseEvent &event)
{
    return (event.globalPosition() - event.position()).toPoint();
}

QPointer<SkinWindow> &lastActiveWindow()
{
    static QPointer<SkinWindow> window;
    return window;
}
} // namespace

SkinWindow::SkinWindow(const QString &name, const QString &caption, Picture skin, QSize size)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), m_background(skin), m_density(devicePixelRatioF())
{
    setObjectName(name);
    setWindowTitle(caption);
    setFixedSize(size);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SkinWindow::renewPicture()
{
    keepReadable(m_background, *this);
}

QColor SkinWindow::skinColourAt(const QPoint &place)
{
    renewPicture(); // Some may be passed over.
    const QImage skin = pictureImage(m_background.which());
    return skin.valid(place) ? skin.pixelColor(place) : skinColour(Colour::graphite);
}

void SkinWindow::DragBySkin(const QMouseEvent &event)
{
    if (QGuiApplication::platformName().startsWith(u"wayland"_s) && windowHandle())
        windowHandle()->startSystemMove(); // A client cannot place its windows there.
    else
        m_grip = {event.position().toPoint(), cornerSeen(event), {}};
}

void SkinWindow::bringBack()
{
    if (!isVisible() && windowHandle())
        forgetMinimised(*windowHandle());
    showNormal();
    raise();
    activateWindow();
}

// Qt drops a move to where it believes the window to be, and the window system then looks for a place of its own.
void SkinWindow::setVisible(bool visible)
{
    const bool comesBack = visible && !isVisible() && m_painted;
    if (comesBack && windowHandle())
        windowHandle()->setPosition(windowHandle()->position());
    QWidget::setVisible(visible);
}

void SkinWindow::paintEvent(QPaintEvent *event)
{
    renewPicture();
    QPainter painter(this);
    paintSkin(painter, event->rect(), {});
    if (std::exchange(m_comesUp, false) && windowOpacity() < 1)
        keepOpacity();
    if (!std::exchange(m_painted, true))
        QMetaObject::invokeMethod(this, &SkinWindow::firstPainted, Qt::QueuedConnection);
}

// The first picture is on its way: the window is on the screen. A desktop that shows it a moment later than that, as
// one does that is reached through XWayland, is told again then.
void SkinWindow::keepOpacity()
{
    for (const int laterMs : {0, 300}) {
        QTimer::singleShot(laterMs, this, [this] {
            if (windowHandle())
                renewOpacity(*windowHandle());
        });
    }
}

void SkinWindow::paintSkin(QPainter &painter, const QRect &part, const QPoint &offset) const
{
    const QPixmap &background = m_background.pixmap();
    if (!m_background.isMade())
        return;
    if (background.deviceIndependentSize().toSize() == size()) // Pixel on pixel, whatever the scale.
        painter.drawPixmap(-offset, background);
    else
        paintPlainPanel(painter, part, *this, offset);
}

void SkinWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !isRepeat(*event))
        Q_EMIT closeRequested();
    else if (event->key() == Qt::Key_F6)
        goToNextWindow();
    else if (event->key() >= Qt::Key_MediaPlay && event->key() <= Qt::Key_MediaTogglePlayPause &&
             !event->isAutoRepeat())
        Q_EMIT mediaKeyPressed(event->key());
    else
        QWidget::keyPressEvent(event);
}

void SkinWindow::goToNextWindow() const
{
    QList<SkinWindow *> shown;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *skin = qobject_cast<SkinWindow *>(window); skin && skin->isSeen())
            shown += skin;
    }
    std::sort(shown.begin(), shown.end(), [](auto *a, auto *b) { return a->objectName() < b->objectName(); });
    if (shown.isEmpty())
        return;
    SkinWindow *next = shown[(shown.indexOf(this) + 1) % shown.size()];
    next->raise();
    next->activateWindow();
}

SkinWindow *SkinWindow::lastActive()
{
    SkinWindow *window = lastActiveWindow();
    return window && window->isSeen() ? window : nullptr;
}

void SkinWindow::contextMenuEvent(QContextMenuEvent *event)
{
    ListBox *list = event->reason() == QContextMenuEvent::Keyboard ? listWithMenu() : nullptr;
    if (list)
        list->askForMenu();
    event->setAccepted(list);
}

void SkinWindow::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        DragBySkin(*event);
}

void SkinWindow::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_grip || !(event->buttons() & Qt::LeftButton))
        return;
    const QPoint wanted = event->globalPosition().toPoint() - m_grip->held;
    const qint64 askingMs = m_grip->asking.isValid() ? m_grip->asking.elapsed() : 0;
    const bool isIgnored = staysBehind(m_grip->start, cornerSeen(*event), wanted, askingMs);
    if (isIgnored && windowHandle()->startSystemMove()) { // As XWayland may do, where the desktop places windows.
        m_grip.reset();
        return;
    }
    if (!m_grip->asking.isValid())
        m_grip->asking.start();
    move(wanted);
}

void SkinWindow::mouseReleaseEvent(QMouseEvent *)
{
    m_grip.reset();
}

// The desktop may activate a hidden window for a moment, and the focus then goes to the first control.
void SkinWindow::showEvent(QShowEvent *)
{
    if (m_lastFocus)
        m_lastFocus->setFocus();
    m_comesUp = true;
    noteDensity();
    noteSeen();
}

void SkinWindow::hideEvent(QHideEvent *)
{
    m_lastFocus = focusWidget();
    noteSeen();
}

bool SkinWindow::event(QEvent *event)
{
    const bool isDone = QWidget::event(event);
    if (event->type() == QEvent::ScreenChangeInternal)
        noteDensity();
    return isDone;
}

// The density of the screen that the window is on; a screen that gets another one is another size, in logical pixels.
void SkinWindow::noteDensity()
{
    connect(screen(), &QScreen::geometryChanged, this, &SkinWindow::followDensity, Qt::UniqueConnection);
    const qreal before = std::exchange(m_density, devicePixelRatioF());
    if (before != m_density)
        skinChanged();
}

// Qt resizes a window that comes to another screen, but none whose own screen gets another density from the desktop.
// It keeps its corner.
void SkinWindow::followDensity()
{
    const qreal before = m_density;
    noteDensity();
    if (before == m_density || !windowHandle())
        return;
    windowHandle()->setGeometry(QRect(windowHandle()->position(), size()));
    if (backingStore())
        backingStore()->resize(size());
    update();
    for (QWidget *part : findChildren<QWidget *>()) // Opaque ones are left out else.
        part->update();
}

void SkinWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        if (isVisible())
            renewPicture(); // A control that paints the skin itself may do so before the window.
        skinChanged();
    } else if (event->type() == QEvent::WindowStateChange)
        noteSeen();
    else if (event->type() == QEvent::ActivationChange && isActiveWindow())
        lastActiveWindow() = this;
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

void CenterWindow(QWidget &window)
{
    const QRect screen = window.screen()->geometry();
    window.move(screen.topLeft() + centredPlace(screen.size(), window.size()).toPoint());
}

void PumpEvents()
{
    constexpr int passes = 100;
    for (int pass = 0; pass < passes; ++pass)
        QCoreApplication::processEvents();
}
