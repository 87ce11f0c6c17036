// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/drop_target.h"

#include "platform/drives.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace
{
QStringList filesOf(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        if (const QString path = pathOfUri(QString::fromLatin1(url.toEncoded())); !path.isEmpty())
            paths += path;
    }
    return paths;
}

// The file stays with its owner: a source that offers nothing but to give it away is refused.
Qt::DropAction harmlessAction(Qt::DropActions offered)
{
    return offered & Qt::CopyAction ? Qt::CopyAction : offered & Qt::LinkAction ? Qt::LinkAction : Qt::IgnoreAction;
}
} // namespace

DropTarget::DropTarget(QWidget &window, std::function<bool(const QStringList &)> wants)
    : QObject(&window), m_wants(std::move(wants))
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool DropTarget::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        enter(*static_cast<QDropEvent *>(event));
        [[fallthrough]]; // It says too where the pointer is.
    case QEvent::DragMove:
        answer(*static_cast<QDropEvent *>(event));
        if (event->isAccepted())
            Q_EMIT hovered(static_cast<QDropEvent *>(event)->position().toPoint());
        return true;
    case QEvent::DragLeave:
        m_paths.clear();
        Q_EMIT left();
        return true;
    case QEvent::Drop:
        drop(*static_cast<QDropEvent *>(event));
        return true;
    default:
        return false;
    }
}

void DropTarget::enter(const QDropEvent &event)
{
    m_paths = QApplication::activeModalWidget() ? QStringList() : filesOf(*event.mimeData());
    if (!m_paths.isEmpty() && !m_wants(m_paths))
        m_paths.clear();
}

void DropTarget::answer(QDropEvent &event) const
{
    const Qt::DropAction action = harmlessAction(event.possibleActions());
    event.setDropAction(action);
    event.setAccepted(!m_paths.isEmpty() && action != Qt::IgnoreAction);
}

void DropTarget::drop(QDropEvent &event)
{
    answer(event);
    Q_EMIT left();
    const QStringList paths = std::exchange(m_paths, {});
    if (!event.isAccepted())
        return;
    const auto tell = [this, paths, place = event.position().toPoint()] { Q_EMIT dropped(paths, place); };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}
