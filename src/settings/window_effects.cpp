// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/window_effects.h"

#include "controls/picture_box.h"
#include "settings/window_shape.h"

#include <QGuiApplication>
#include <QVariant>
#include <QWidget>

void MakeTranslucent(QWidget &window, qint16 on)
{
    constexpr int halfAlpha = 128;
    constexpr int fullAlpha = 255;
    window.setProperty("layered", true);
    if (QGuiApplication::platformName().startsWith(u"wayland"))
        return; // Knows no such thing, and says so each time.
    window.setWindowOpacity((on == asFlag(true) ? halfAlpha : fullAlpha) / qreal(fullAlpha));
    window.update(); // Under X11 the request waits in a buffer until something is painted.
}

bool ShapeFromPicture(PictureBox &box)
{
    const QImage picture = box.image();
    if (!picture.isNull())
        box.resize(picture.size());
    const QRegion shape = shapeRegion(picture);
    box.setShape(shape);
    return !shape.isEmpty();
}
