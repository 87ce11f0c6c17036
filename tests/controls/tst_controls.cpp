// SPDX-License-Identifier: GPL-3.0-or-later
// What the other controls promise: timers, sliders, buttons, menus and the window that is a picture.
#include "base/last_error.h"
#include "base/timer.h"
#include "controls/accessibility.h"
#include "controls/fields.h"
#include "controls/fonts.h"
#include "controls/label.h"
#include "controls/menu_items.h"
#include "controls/msg_box.h"
#include "controls/picture_box.h"
#include "controls/scroll_bars.h"
#include "controls/skin_style.h"
#include "controls/skin_window.h"
#include "controls/wear_skin.h"
#include "platform/desktop.h"
#include "skins/places.h"
#include "support/table.h"
#include "support/test_files.h"

#include <QAccessible>
#include <QApplication>
#include <QBackingStore>
#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QProcess>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{
ControlSetup at(const QRect &place)
{
    return {u"Control"_s, u"A control"_s, place};
}

// The middle of a slider's thumb.
QPoint thumbOf(const SliderBar &bar)
{
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.sliderPosition();
    option.upsideDown = bar.invertedAppearance();
    option.pageStep = bar.pageStep();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar).center();
}

void send(QWidget &widget, QEvent::Type type, const QPoint &global, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, widget.mapFromGlobal(global), global, button, buttons, {});
    QCoreApplication::sendEvent(&widget, &event);
}

void drag(QWidget &widget, const QPoint &from, const QPoint &to)
{
    QTest::mousePress(&widget, Qt::LeftButton, {}, from);
    send(widget, QEvent::MouseMove, widget.mapToGlobal(to), Qt::NoButton, Qt::LeftButton);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, to);
}
} // namespace

class ControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setStyle(new SkinStyle);
        installAccessibility();
    }

    void aTimerRestsAndWaitsAsTold()
    {
        constexpr int hourMs = 3'600'000;
        Timer timer(nullptr, u"Timer1"_s, 1);
        Timer metronome(nullptr, u"Timer2"_s, 1);
        const QSignalSpy ticks(&timer, &Timer::tick);
        const QSignalSpy beats(&metronome, &Timer::tick);
        const auto beat = [&beats] {
            return QTest::qWaitFor([&, end = beats.size() + 3] { return beats.size() >= end; });
        };
        metronome.setEnabled(true);
        timer.setResting(true);
        timer.setEnabled(true);
        timer.trigger();
        QVERIFY(beat());
        QCOMPARE(ticks.size(), 0);
        timer.setResting(false);
        QTRY_VERIFY(ticks.size() > 2);
        connect(&timer, &Timer::tick, this, [&] { timer.sleepFor(hourMs); });
        const qsizetype before = ticks.size();
        QTRY_COMPARE(ticks.size(), before + 1);
        QVERIFY(beat());
        QCOMPARE(ticks.size(), before + 1);
        timer.trigger();
        QTRY_COMPARE(ticks.size(), before + 2);
        timer.setEnabled(false);
        timer.trigger();
        QVERIFY(beat());
        QCOMPARE(ticks.size(), before + 2);
    }

    void aOneShotTimerFiresOnceAfterTheHandler()
    {
        Timer timer(nullptr, u"Timer2"_s, 1, Timer::Kind::OneShot);
        timer.setResting(true); // Never does.
        int fired = 0;
        connect(&timer, &Timer::tick, this, [&] {
            if (++fired == 1 && !timer.Enabled())
                timer.setEnabled(true); // It may be used again from its own handler.
        });
        timer.setEnabled(true);
        timer.setEnabled(true);
        QCOMPARE(fired, 0);
        QTRY_COMPARE(fired, 2);
        QVERIFY(!timer.Enabled());
    }

    void theVolumeIsLoudestAtTheTop()
    {
        QString notches;
        VScrollBar volume(nullptr, at({0, 0, 20, 184}), 0, -2290);
        volume.setSmallChange(5);
        volume.show();
        volume.setValue(0);
        const int top = thumbOf(volume).y();
        volume.setValue(-2290);
        QVERIFY(thumbOf(volume).y() > top + 50);
        QTest::keyClick(&volume, Qt::Key_Up);
        QCOMPARE(volume.Value(), -2285);
        volume.setWheelStep(100);
        for (const int turned : {120, 60, 45, 15, -240}) { // In notches of 120, or finer.
            QWheelEvent wheel({10, 10}, volume.mapToGlobal(QPointF(10, 10)), {}, {0, turned}, {}, {}, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(&volume, &wheel);
            notches += QString::number((volume.Value() + 2285) / 5) + u' ';
        }
        QCOMPARE(notches, u"20 30 37 40 0 "_s);
        volume.setValue(-3000);
        QCOMPARE(volume.Value(), -2290);
        using Actions = QAccessibleActionInterface;
        for (const auto &[action, value] :
             {std::pair(Actions::increaseAction(), -2285), {Actions::decreaseAction(), -2290}}) {
            QAccessible::queryAccessibleInterface(&volume)->actionInterface()->doAction(action);
            QCOMPARE(volume.Value(), value);
        }
        const QPoint thumb = thumbOf(volume);
        drag(volume, thumb, {thumb.x(), 0});
        QCOMPARE(volume.Value(), 0);
        volume.setAccessibleInPercent();
        auto *seen = QAccessible::queryAccessibleInterface(&volume);
        const double before = seen->valueInterface()->currentValue().toDouble();
        seen->actionInterface()->doAction(Actions::decreaseAction());
        QCOMPARE(before - seen->valueInterface()->currentValue().toDouble(),
                 seen->valueInterface()->minimumStepSize().toDouble());
    }

    void onlyTheUserScrolls_data()
    {
        const auto row = table<bool>("inWords");
        row("every value told", false);
        row("in words, on request", true);
    }

    void onlyTheUserScrolls()
    {
        HScrollBar position(nullptr, at({0, 0, 400, 16}));
        QFETCH(bool, inWords);
        if (inWords)
            position.setPlaceInWords([&position] { return QString::number(position.Value()) + u" of many"_s; });
        position.setRange(0, 200);
        position.setLargeChange(10);
        position.show();
        QSignalSpy changes(&position, &SliderBar::Change);
        QSignalSpy scrolls(&position, &SliderBar::Scroll);
        const auto told = [&] { return std::pair(changes.size(), scrolls.size()); };
        using Told = std::pair<qsizetype, qsizetype>;
        position.setValue(150);
        QCOMPARE(told(), Told(1, 0));
        position.setMax(100); // A shorter song.
        QCOMPARE(position.Value(), 100);
        QCOMPARE(told(), Told(2, 0));
        QTest::mouseClick(&position, Qt::LeftButton, {}, {2, 8}); // On the groove.
        QCOMPARE(told(), Told(3, 0));
        QTest::keyClick(&position, Qt::Key_Left);
        QCOMPARE(told(), Told(4, 1));
        QAccessible::queryAccessibleInterface(&position)->valueInterface()->setCurrentValue(20);
        QCOMPARE(position.Value(), 20);
        QCOMPARE(told(), Told(5, 2));
        QTest::keyClick(&position, Qt::Key_PageUp);
        QCOMPARE(position.Value(), 30);
        QCOMPARE(told(), Told(6, 3));
        QTest::mousePress(&position, Qt::LeftButton, {}, {398, 8}); // Held on the groove until the thumb gets there.
        QTRY_VERIFY(position.Value() > 90);
        QTest::mouseRelease(&position, Qt::LeftButton, {}, {398, 8});
        QTest::mouseClick(&position, Qt::MiddleButton, {}, {200, 8});
        QCOMPARE(scrolls.size(), 3);
        position.setSliderDown(true); // Held while the song ends.
        position.setValue(0);
        QVERIFY(position.Value() > 50);
        position.setSliderDown(false);
        QCOMPARE(position.Value(), 0);
        position.setValue(50);
        QCOMPARE(QAccessible::queryAccessibleInterface(&position)->text(QAccessible::Name),
                 inWords ? u"A control, 50 of many"_s : u"A control"_s);
        QTest::keyClick(&position, Qt::Key_Right); // From where the program has put it.
        QCOMPARE(position.Value(), 51);
        position.setValue(60);
        drag(position, thumbOf(position), {thumbOf(position).x() + 20, 8});
        QVERIFY(position.Value() > 60 && position.Value() < 70);
        position.setMax(-5);
        QCOMPARE(position.Max(), 0);
        QCOMPARE(scrolls.size(), 5);
    }

    void aDropDownTurnsOnlyWithTheKeyboard()
    {
        QWidget window;
        ComboBox box(&window, at({0, 0, 100, 22}), {u"a"_s, u"b"_s, u"c"_s});
        box.setListIndex(0);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const auto turn = [&box] {
            QWheelEvent down({10, 10}, box.mapToGlobal(QPointF(10, 10)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                             false);
            QApplication::sendEvent(&box, &down);
            return box.ListIndex();
        };
        window.setFocus();
        QCOMPARE(turn(), 0);
        QVERIFY(!box.hasFocus());
        box.setFocus();
        QCOMPARE(turn(), 1);
    }

    void everyTimeFitsItsPlace()
    {
        QWidget window;
        TextBox box(&window, at(places::Mp3Frm::Text1));
        const QFont font = fonts::font(fonts::Face::MatisseItc, 22);
        box.setFont(font);
        box.setDisplayOnly();
        for (const QString &time : {u"99:59:59/99:59:59"_s, u"2:46:29/2:58:42"_s, u"0:00/0:00"_s}) {
            box.setText(time);
            QVERIFY2(QFontMetricsF(box.font()).horizontalAdvance(time) <= box.width(), qPrintable(time));
            QCOMPARE(box.font() == font, QFontMetricsF(font).horizontalAdvance(time) <= box.width());
        }
    }

    void labelsAndPicturesArePressed()
    {
        Label label(nullptr, at({0, 0, 60, 20}), u"before"_s);
        label.setButton(true);
        label.setCaption(u"Play"_s);
        PictureBox picture(nullptr, at({0, 0, 60, 20}));
        picture.setButton(Picture::Play, Picture::PlayHover, Picture::PlayPressed, u">"_s);
        for (const auto &[widget, name] :
             {std::pair<QWidget *, QString>(&label, u"Play"_s), {&picture, u"A control"_s}}) {
            widget->show();
            const QSignalSpy clicks(widget, SIGNAL(Click()));
            QTest::mouseClick(widget, Qt::LeftButton);
            QTest::keyClick(widget, Qt::Key_Space);
            QTest::keyClick(widget, Qt::Key_Return);
            QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(widget);
            QCOMPARE(seen->role(), QAccessible::Button);
            QCOMPARE(seen->text(QAccessible::Name), name);
            QCOMPARE(seen->text(QAccessible::Description), u"A control"_s);
            seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            QCOMPARE(clicks.size(), 4);
            QTest::mouseClick(widget, Qt::RightButton);
            QTest::keyClick(widget, Qt::Key_A);
            QTest::mouseMove(widget);
            const QImage idle = widget->grab().toImage();
            QTest::mousePress(widget, Qt::LeftButton);
            QVERIFY(widget->grab().toImage() != idle);
            QTest::mouseRelease(widget, Qt::LeftButton, {}, {500, 5}); // Thought better of it.
            widget->setEnabled(false);
            seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            QCOMPARE(clicks.size(), 4);
        }
        const auto look = [&picture](Picture which) {
            PictureBox box(nullptr, at(picture.geometry()));
            box.setPicture(which);
            return box.grab().toImage();
        };
        picture.setEnabled(true);
        picture.clearFocus();
        QTest::mousePress(&picture, Qt::LeftButton);
        QCOMPARE(picture.grab().toImage(), look(Picture::PlayPressed));
        QTest::mouseRelease(&picture, Qt::LeftButton);
        picture.setOnPicture(Picture::PauseOn);
        picture.setOn(true);
        QCOMPARE(picture.grab().toImage(), look(Picture::PauseOn));
    }

    void aTitleTurnsWithoutLosingLetters_data()
    {
        const auto row = table<QString, bool>("title", "fromRight");
        row("from the left", u"    Zoë - Café"_s, false);
        row("from the right", u"    פלוני - שיר ארוך"_s, true);
        row("joined letters", u"    أغنية جميلة"_s, true);
        row("mixed", u"    Band - שיר (live)"_s, false);
    }

    void aTitleTurnsWithoutLosingLetters()
    {
        QFETCH(QString, title);
        QFETCH(bool, fromRight);
        SkinWindow window(u"Splash"_s, u"Window"_s, Picture::SplashSkin, {400, 40});
        Label label(&window, at({0, 10, 400, 30}), title);
        label.setMarquee();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window)); // Painted before another skin is worn.
        const auto onScreen = [&window] { return static_cast<QImage *>(window.backingStore()->paintDevice())->copy(); };
        Skin green = firstSkin();
        green.colours.at(static_cast<std::size_t>(Colour::caption)) = qRgb(0, 255, 0);
        wearSkin(green);
        const auto ink = [onScreen](const QRect &part) {
            const QImage shown = onScreen().copy(part);
            int lit = 0;
            for (int y = 0; y < shown.height(); ++y)
                for (int x = 0; x < shown.width(); ++x)
                    lit += qGreen(shown.pixel(x, y)) - qRed(shown.pixel(x, y)) > 60;
            return lit;
        };
        QTRY_VERIFY(ink(window.rect()) > 100);
        const int whole = ink(window.rect());
        const QImage start = onScreen();
        QCOMPARE(ink(fromRight ? QRect(0, 0, 150, 40) : QRect(250, 0, 150, 40)), 0);
        for (qsizetype turn = 1; turn <= title.size(); ++turn) {
            title = title.sliced(1) + title[0];
            label.setCaption(title);
            QVERIFY2(std::abs(ink(window.rect()) - whole) < 20, qPrintable(title)); // A letter may be cut, by a pixel.
            QVERIFY(turn == title.size() || onScreen() != start);
            QCOMPARE(onScreen(), window.grab().toImage().convertToFormat(onScreen().format()));
        }
        QCOMPARE(onScreen(), start);
        wearSkin(firstSkin());
    }

    void aMenuShowsMarksAndClosesAfterItsCommand()
    {
        MenuItems items(nullptr, u"mnuTest"_s, {u"Rock & Roll"_s, u"-"_s, u"Repeat"_s});
        QStringList events;
        QPointer<QMenu> menu;
        connect(&items, &MenuItems::Click, this, [&](int index) {
            events += QString::number(index);
            QVERIFY(!menu); // Whatever opens now and lets events run finds no menu half left.
        });
        connect(&items, &MenuItems::closed, this, [&] { events += u"closed"_s; });
        items.setCheckable({2});
        items.setChecked(2, true);
        for (const int index : {1, 3, -1})
            items.choose(index);
        QCOMPARE(events, QStringList());
        items.popUp({100, 100});
        QTRY_VERIFY(QApplication::activePopupWidget());
        menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        const QList<QAction *> actions = menu->actions();
        QCOMPARE(actions[0]->text(), u"Rock && Roll"_s);
        QVERIFY(!actions[0]->isCheckable() && actions[1]->isSeparator() && actions[2]->isChecked());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(actions[2]).center());
        QTRY_COMPARE(events, QStringList({u"2"_s, u"closed"_s}));
        QVERIFY(items.Checked(2)); // The mark is the command's business.
        items.popUp({100, 100});
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        items.popUp({200, 200}); // The press that closed the menu opens it anew at once.
        QTest::qWait(0);
        QVERIFY(QApplication::activePopupWidget());
        QCOMPARE(events, QStringList({u"2"_s, u"closed"_s}));
        menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        menu->actions()[0]->trigger(); // As assistive tools do.
        QTRY_COMPARE(events, QStringList({u"2"_s, u"closed"_s, u"0"_s, u"closed"_s}));
    }

    void aBoxIsAnsweredByAFreshKeyAlone_data()
    {
        const auto row = table<MsgBox::Buttons, MsgBox::Answer>("buttons", "answer");
        row("a question", MsgBox::Buttons::YesNo, MsgBox::Answer::Yes);
        row("a loss for good", MsgBox::Buttons::YesNoAtRisk, MsgBox::Answer::No);
    }

    void aBoxIsAnsweredByAFreshKeyAlone()
    {
        QFETCH(MsgBox::Buttons, buttons);
        SkinWindow window(u"Splash"_s, u"Window"_s, Picture::SplashSkin, {420, 200});
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::setActiveWindow(nullptr); // As when the window has just lost a dialog.
        bool isOver = false;
        bool staysOpen = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            QWidget *box = QApplication::activeModalWidget();
            if (!box || !box->focusWidget())
                return;
            isOver = box->parentWidget() == &window;
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
            QCoreApplication::sendEvent(box->focusWidget(), &held);
            for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) { // As X11 has it, at one time.
                QKeyEvent repeat(type, Qt::Key_Return, {});
                repeat.setTimestamp(1000);
                QCoreApplication::sendEvent(box->focusWidget(), &repeat);
            }
            staysOpen = box->isVisible();
            QTest::keyClick(box->focusWidget(), Qt::Key_Return);
        });
        timer.start();
        QTEST(MsgBox::show(u"Text"_s, u"Title"_s, MsgBox::Icon::Question, buttons), "answer");
        QVERIFY(isOver && staysOpen);
    }

    void errorsDoNotPileUp()
    {
        QStringList told;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            told += box->text();
            for (const QString &text : {u"second"_s, u"third"_s})
                if (told.size() == 1)
                    MsgBox::showError({1, u"Test"_s, text});
            box->accept();
        });
        timer.start();
        MsgBox::showError({1, u"Test"_s, u"first"_s});
        QCOMPARE(told, QStringList({u"Test - first"_s, u"Test - third"_s}));
    }

    void aWindowWithoutItsPictureIsPlain()
    {
        const QColor plain = skinColour(Colour::graphite);
        const TestFolder skins;
        QVERIFY(QFile::copy(firstSkinFolder() + u"/Splash.jpg"_s, skins.hostPath() + u"/Splash.jpg"_s));
        qputenv("KIV_MP3_SKINS", QFile::encodeName(skins.hostPath()));
        wearSkin(firstSkin());
        for (const auto &[picture, size, isPlain] : {std::tuple(Picture::SplashSkin, QSize(420, 200), false),
                                                     {Picture::SplashSkin, {310, 100}, true},
                                                     {Picture::PlaylistSkin, {310, 100}, true}}) {
            SkinWindow window(u"Other"_s, u"Window"_s, picture, size);
            QCOMPARE(window.grab().toImage().pixelColor(300, 20) == plain, isPlain);
        }
        qunsetenv("KIV_MP3_SKINS");
        wearSkin(firstSkin());
    }

    void aWindowIsDraggedByItsSkin()
    {
        SkinWindow window(u"Splash"_s, u"Window"_s, Picture::SplashSkin, {420, 200});
        Label text(&window, at({10, 10, 100, 20}), u"a text"_s);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QPoint start = window.pos();
        const QPoint grip = window.mapToGlobal(QPoint(200, 50));
        send(window, QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
        send(window, QEvent::MouseMove, grip + QPoint(30, 40), Qt::NoButton, Qt::LeftButton);
        QTRY_COMPARE(window.pos(), start + QPoint(30, 40));
        send(window, QEvent::MouseButtonRelease, grip + QPoint(30, 40), Qt::LeftButton, Qt::NoButton);
        send(window, QEvent::MouseMove, grip, Qt::NoButton, Qt::LeftButton);
        QCOMPARE(window.pos(), start + QPoint(30, 40));
        const QPoint onText = text.mapToGlobal(QPoint(5, 5)); // A text is no obstacle.
        send(text, QEvent::MouseButtonPress, onText, Qt::LeftButton, Qt::LeftButton);
        send(window, QEvent::MouseMove, onText + QPoint(7, 0), Qt::NoButton, Qt::LeftButton);
        QTRY_COMPARE(window.pos(), start + QPoint(37, 40));

        const QPoint far(300, 200); // The window is not where Qt believes it to be.
        QMouseEvent press(QEvent::MouseButtonPress, {200, 50}, grip + far, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window, &press);
        send(window, QEvent::MouseMove, grip + far + QPoint(1, 0), Qt::NoButton, Qt::LeftButton);
        QTRY_COMPARE(window.pos(), start + far + QPoint(1, 0));
    }

    void aWindowComesBackAsItWas()
    {
        if (QGuiApplication::platformName() != u"xcb"_s)
            QSKIP("Only a window manager can iconify windows or put them elsewhere.");
        SkinWindow window(u"Splash"_s, u"Window"_s, Picture::SplashSkin, {420, 200});
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QPoint place = window.pos();
        window.showMinimized();
        QTRY_VERIFY(!window.windowHandle()->isExposed());
        QCOMPARE(QProcess::execute(u"xdotool"_s, {u"windowactivate"_s, QString::number(window.winId())}), 0);
        QTRY_VERIFY(window.isSeen() && window.windowHandle()->isExposed());
        window.hide();
        SkinWindow inItsPlace(u"Other"_s, u"Window"_s, Picture::SplashSkin, {420, 200});
        inItsPlace.show();
        QVERIFY(QTest::qWaitForWindowExposed(&inItsPlace));
        window.bringBack();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.pos(), place);
    }

    void aWindowTellsWhenItIsSeen()
    {
        SkinWindow window(u"Splash"_s, u"Window"_s, Picture::SplashSkin, {420, 200});
        QList<bool> told;
        connect(&window, &SkinWindow::seenChanged, this, [&](bool seen) { told += seen; });
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showMinimized();
        QTRY_COMPARE(told, QList({true, false}));
        window.showNormal();
        QTRY_COMPARE(told, QList({true, false, true}));
        const QSignalSpy closing(&window, &SkinWindow::closeRequested);
        QVERIFY(!window.close());
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, {}, {}, true); // It has closed another one.
        QCoreApplication::sendEvent(&window, &held);
        QVERIFY(window.isVisible() && closing.size() == 1);
        window.hide();
        QCOMPARE(told, QList({true, false, true, false}));
    }
};

QTEST_MAIN(ControlsTest)
#include "tst_controls.moc"
