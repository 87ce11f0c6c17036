// Shapes cut from pictures, and half transparent windows.
#include "controls/picture_box.h"
#include "settings/tool_bar_rules.h"
#include "settings/translucency.h"
#include "settings/window_shape.h"

#include <QRandomGenerator>
#include <QTest>

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

// The same region pixel by pixel, one union after the other.
QRegion slowRegion(const QImage &picture)
{
    QRegion total;
    bool inRun = false;
    int start = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool isKey = picture.pixel(x, y) == picture.pixel(0, 0);
            if (isKey && inRun)
                total += QRect(std::min(start, x), y, std::abs(x - start), 1);
            else if (!isKey && !inRun)
                start = x;
            inRun = !isKey;
        }
    }
    return total;
}
} // namespace

class WindowEffectsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapes_data();
    void shapes();
    void random_pictures_give_the_union_of_their_runs();
    void transparent_pixels_are_one_colour();
    void a_picture_box_is_cut_to_its_picture();
    void only_exactly_true_makes_translucent();
    void frames_go_round();
};

void WindowEffectsTest::shapes_data()
{
    QTest::addColumn<QImage>("picture");
    QTest::addColumn<QRegion>("shape");
    QTest::newRow("none") << QImage() << QRegion();
    QTest::newRow("one pixel") << drawn({u"."_s}) << QRegion();
    QTest::newRow("all key colour") << drawn({u"..."_s, u"..."_s}) << QRegion();
    QTest::newRow("square") << drawn({u"...."_s, u".##."_s, u".##."_s, u"...."_s}) << QRegion(1, 1, 2, 2);
    QTest::newRow("right edge, last row") << drawn({u"..."_s, u".##"_s}) << QRegion();
    QTest::newRow("right edge, closed left of its start") << drawn({u"..##"_s, u"...."_s}) << QRegion(0, 1, 2, 1);
    QTest::newRow("right edge, closed at its start") << drawn({u"..##"_s, u"##.."_s}) << QRegion();
    QTest::newRow("right edge, closed right of its start") << drawn({u"..##"_s, u"###."_s}) << QRegion(2, 1, 1, 1);
    QTest::newRow("right edge, over two rows") << drawn({u".#"_s, u"##"_s, u"##"_s, u".."_s}) << QRegion(0, 3, 1, 1);
    QTest::newRow("closed run covers another") << drawn({u"...#"_s, u".#.."_s}) << QRegion(0, 1, 3, 1);
}

void WindowEffectsTest::shapes()
{
    QFETCH(QImage, picture);
    QTEST(shapeRegion(picture), "shape");
}

void WindowEffectsTest::random_pictures_give_the_union_of_their_runs()
{
    QRandomGenerator random(7);
    for (int turn = 0; turn < 300; ++turn) {
        QImage picture(1 + turn % 9, 1 + turn % 7, QImage::Format_RGB32);
        for (int i = 0; i < picture.width() * picture.height(); ++i)
            picture.setPixel(i % picture.width(), i / picture.width(), random.bounded(3) ? 0xFF000000 : 0xFFFF00FF);
        QCOMPARE(shapeRegion(picture), slowRegion(picture));
    }
}

void WindowEffectsTest::transparent_pixels_are_one_colour()
{
    QImage picture(3, 1, QImage::Format_ARGB32);
    picture.setPixel(0, 0, 0x00FFFFFF);
    picture.setPixel(1, 0, 0xFF000000);
    picture.setPixel(2, 0, 0x00000000);
    QCOMPARE(shapeRegion(picture), QRegion(1, 0, 1, 1));
    QCOMPARE(shapeRegion(picture.convertToFormat(QImage::Format_RGBA64)), QRegion(1, 0, 1, 1));
}

void WindowEffectsTest::a_picture_box_is_cut_to_its_picture()
{
    QWidget window;
    PictureBox box(&window, {u"bPlay"_s, u"Play"_s, QRect(0, 0, 9, 9)});
    QVERIFY(!ShapeFromPicture(box));
    QCOMPARE(box.size(), QSize(9, 9));
    box.setPicture(Picture::Play);
    QVERIFY(ShapeFromPicture(box));
    QCOMPARE(box.size(), box.image().size());
    QVERIFY(!box.mask().contains(QPoint(0, 0)));
    QVERIFY(box.mask().contains(box.rect().center()));
    QCOMPARE(window.childAt(1, 1), nullptr);
}

void WindowEffectsTest::only_exactly_true_makes_translucent()
{
    QWidget window;
    for (const auto &[on, alpha] : {std::pair<qint16, int>{-1, 128}, {1, 255}, {-1, 128}, {0, 255}, {-2, 255}}) {
        MakeTranslucent(window, on);
        QCOMPARE(qRound(window.windowOpacity() * 255), alpha);
        QVERIFY(window.property("layered").toBool());
    }
}

void WindowEffectsTest::frames_go_round()
{
    QCOMPARE(nextFrame(0), 1);
    QCOMPARE(nextFrame(1), 2);
    QCOMPARE(nextFrame(2), 0);
}

QTEST_MAIN(WindowEffectsTest)
#include "tst_window_effects.moc"
