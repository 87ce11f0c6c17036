// SPDX-License-Identifier: GPL-3.0-or-later
// Shapes cut from pictures, and half transparent windows.
#include "controls/label.h"
#include "controls/picture_box.h"
#include "controls/skin_window.h"
#include "settings/window_effects.h"
#include "settings/window_shape.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace
{
// A picture from rows of characters, magenta for a dot.
QImage drawn(const QStringList &rows)
{
    QImage picture(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y, rows[y][x] == u'.' ? Qt::magenta : Qt::black);
    }
    return picture;
}
} // namespace

class WindowEffectsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapes_data()
    {
        const auto row = table<QImage, QRegion>("picture", "shape");
        row("none", QImage(), QRegion());
        row("one pixel", drawn({u"."_s}), QRegion());
        row("square", drawn({u"...."_s, u".##."_s, u".##."_s, u"...."_s}), QRegion(1, 1, 2, 2));
        row("right edge, last row", drawn({u"..."_s, u".##"_s}), QRegion());
        row("right edge, closed left of its start", drawn({u"..##"_s, u"...."_s}), QRegion(0, 1, 2, 1));
        row("right edge, closed at its start", drawn({u"..##"_s, u"##.."_s}), QRegion());
        row("right edge, closed right of its start", drawn({u"..##"_s, u"###."_s}), QRegion(2, 1, 1, 1));
        row("right edge, over two rows", drawn({u".#"_s, u"##"_s, u"##"_s, u".."_s}), QRegion(0, 3, 1, 1));
        row("closed run covers another", drawn({u"...#"_s, u".#.."_s}), QRegion(0, 1, 3, 1));
    }

    void shapes()
    {
        QFETCH(QImage, picture);
        QTEST(shapeRegion(picture), "shape");
    }

    void transparentPixelsAreOneColour()
    {
        QImage picture(3, 1, QImage::Format_ARGB32);
        picture.setPixel(0, 0, 0x00FFFFFF);
        picture.setPixel(1, 0, 0xFF000000);
        picture.setPixel(2, 0, 0x00000000);
        QCOMPARE(shapeRegion(picture), QRegion(1, 0, 1, 1));
        QCOMPARE(shapeRegion(picture.convertToFormat(QImage::Format_RGBA64)), QRegion(1, 0, 1, 1));
    }

    // At any scale of the screen (QT_SCALE_FACTOR). A grab paints the window as the screen shows it.
    void picturesAreShownPixelByPixel()
    {
        SkinWindow window(u"Splash"_s, u"Window"_s, Picture::SplashSkin, {420, 200});
        const QImage skin = picture(Picture::SplashSkin, window.devicePixelRatioF()).toImage();
        QCOMPARE(window.grab().toImage().convertToFormat(skin.format()), skin);
        Label title(&window, {u"Label7"_s, u"Title"_s, QRect(13, 7, 111, 21)});
        title.setMarquee();
        QCOMPARE(window.grab().toImage().convertToFormat(skin.format()), skin);
        PictureBox box(&window, {u"bPlay"_s, u"Play"_s, QRect(35, 43, 52, 52)});
        QVERIFY(!ShapeFromPicture(box)); // Without a picture.
        box.setPicture(Picture::Play);
        const QImage uncut = window.grab().toImage();
        QVERIFY(ShapeFromPicture(box));
        QCOMPARE(window.grab().toImage(), uncut);
        QVERIFY(box.size() == QSize(52, 52) && box.mask().contains(box.rect().center()));
        QCOMPARE(window.childAt(box.pos() + QPoint(6, 6)), nullptr);
    }
};

QTEST_MAIN(WindowEffectsTest)
#include "tst_window_effects.moc"
