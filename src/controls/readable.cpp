// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/readable.h"

#include "controls/contrast.h"
#include "controls/control.h"
#include "controls/shared_paint.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{
struct Text {
    const QWidget *control;
    QRect place; // In the owner.
    Colour colour;
};

// Is there a part with a ground of its own between the two?
bool isCovered(const QWidget &control, const QWidget &owner)
{
    for (const QWidget *at = control.parentWidget(); at && at != &owner; at = at->parentWidget()) {
        if (const auto *part = dynamic_cast<const Covering *>(at); part && part->isCovering())
            return true;
    }
    return false;
}

std::vector<Text> textsOn(const QWidget &owner)
{
    std::vector<Text> texts;
    for (const QWidget *control : owner.findChildren<QWidget *>()) {
        const auto *text = dynamic_cast<const OnPicture *>(control);
        if (text && !isCovered(*control, owner))
            texts.push_back({control, QRect(control->mapTo(&owner, QPoint()), control->size()), text->textColour()});
    }
    return texts;
}

// The mean of what a picture shows at a place in logical pixels, every other pixel of it.
QRgb groundAt(const QImage &picture, const QRect &place)
{
    constexpr int step = 2;
    const qreal density = picture.devicePixelRatio();
    const QRect part = QRectF(place.topLeft() * density, place.size() * density).toRect() & picture.rect();
    qint64 red = 0;
    qint64 green = 0;
    qint64 blue = 0;
    qint64 count = 0;
    for (int y = part.top(); y <= part.bottom(); y += step) {
        for (int x = part.left(); x <= part.right(); x += step, ++count) {
            const QRgb pixel = picture.pixel(x, y);
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
        }
    }
    count = std::max<qint64>(count, 1);
    return qRgb(static_cast<int>(red / count), static_cast<int>(green / count), static_cast<int>(blue / count));
}

// What cannot be read on the picture, in words; "" when all can.
QString unreadable(const QWidget &owner, const QImage &picture)
{
    for (const Text &text : textsOn(owner)) {
        const double ratio = contrast(skinColour(text.colour).rgb(), groundAt(picture, text.place));
        if (ratio < leastContrast)
            return u"leaves %1, in the colour %2, hardly readable (%3 to 1)"_s.arg(
                text.control->objectName(), colourName(text.colour), QString::number(ratio, 'f', 1));
    }
    return {};
}
} // namespace

void keepReadable(KeptPicture &kept, const QWidget &owner)
{
    if (!kept.keep(owner.devicePixelRatioF()))
        return;
    while (!kept.pixmap().isNull()) {
        const QString fault = unreadable(owner, kept.pixmap().toImage());
        if (fault.isEmpty())
            return;
        refusePicture(kept.which(), fault);
        kept.make(owner.devicePixelRatioF());
    }
}

void paintGrounds(QPainter &painter, const QWidget &owner)
{
    for (const Text &text : textsOn(owner)) {
        const auto *key = qobject_cast<const Pressable *>(text.control);
        const Colour ground = groundOf(text.colour);
        if (ground != Colour::graphite)
            painter.fillRect(text.place, skinColour(ground));
        else if (key && key->isButton())
            paintButtonFace(painter, text.place, ButtonLook::Normal);
    }
}
