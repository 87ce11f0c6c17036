// SPDX-License-Identifier: GPL-3.0-or-later
// Every window in every skin that comes with the player, at the scale that the test is run with: no text is cut off,
// nothing lies outside its window, and nothing is complained of.
#include "app/program.h"
#include "app/splash.h"
#include "controls/skin_style.h"
#include "settings/skin_store.h"
#include "support/fake_engine.h"
#include "support/table.h"
#include "support/windows.h"

#include <QStyleOptionButton>

using namespace Qt::StringLiterals;

namespace
{
// The room that a control leaves to its texts; none where they are cut on purpose.
struct TextRoom {
    QSize size;
    QStringList texts;
};

TextRoom textRoomOf(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const Label *>(&widget); label && !label->mayBeTooLong())
        return {label->size(), {label->Caption()}};
    if (const auto *box = qobject_cast<const CheckBox *>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        return {box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box).size(), {box->text()}};
    }
    TextRoom room;
    if (const auto *list = qobject_cast<const ComboBox *>(&widget)) {
        constexpr int arrowAndIndent = 25;
        room.size = list->size() - QSize(arrowAndIndent, 0);
        for (int row = 0; row < list->ListCount(); ++row)
            room.texts += list->List(row);
    }
    return room;
}

QString faultOf(const QWidget &window, const QWidget &widget)
{
    const QRect place(widget.mapTo(&window, QPoint()), widget.size());
    if (!window.rect().contains(place))
        return u"lies outside"_s;
    const TextRoom room = textRoomOf(widget);
    for (const QString &text : room.texts) {
        const QSize needed(widget.fontMetrics().horizontalAdvance(text), widget.fontMetrics().height());
        if (!text.isEmpty() && needed.boundedTo(room.size) != needed)
            return u"has no room for \""_s + text + u'"';
    }
    return {};
}
} // namespace

class SkinsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new SkinStyle); }

    void everyWindowIsWholeInEverySkin_data()
    {
        const auto row = table<QString>("skin");
        for (const SkinPlace &place : skinsThere())
            row(qPrintable(place.name), place.name);
        QVERIFY(skinsThere().size() >= 3);
    }

    void everyWindowIsWholeInEverySkin()
    {
        QFETCH(QString, skin);
        QTest::failOnWarning(QRegularExpression(u"skin"_s));
        FakeEngine engine;
        const Program program(engine, skin);
        Splash splash;
        QStringList faults;
        int seen = 0;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            auto *skinned = qobject_cast<SkinWindow *>(window);
            if (!skinned)
                continue;
            ++seen;
            skinned->renewPicture(); // As when a skin is tried: no window needs to have been open.
            skinned->show();
            const QImage shown = skinned->grab().toImage();
            if (shown.size() != skinned->size() * skinned->devicePixelRatioF())
                faults += skinned->objectName();
            for (const QWidget *widget : skinned->findChildren<QWidget *>()) {
                if (const QString fault = faultOf(*skinned, *widget);
                    !fault.isEmpty() && !widget->accessibleDescription().isEmpty())
                    faults += skinned->objectName() + u' ' + widget->objectName() + u' ' + fault;
            }
        }
        QCOMPARE(seen, 9);
        QCOMPARE(faults.join(u'\n'), QString());
        QCOMPARE(currentSkin().name, skin);
    }
};

QTEST_MAIN(SkinsTest)
#include "tst_skins.moc"
