// SPDX-License-Identifier: GPL-3.0-or-later
// Every window in every skin that comes with the player, at the scale that the test is run with: no text is cut off,
// nothing lies outside its window, and nothing is complained of.
#include "app/program.h"
#include "app/splash.h"
#include "controls/skin_style.h"
#include "controls/wear_skin.h"
#include "settings/skin_store.h"
#include "support/fake_engine.h"
#include "support/windows.h"

#include <QStyleOptionButton>

using namespace Qt::StringLiterals;

namespace
{
// The room that a control leaves to its text, and the text as it is longest; none where the text is cut on purpose.
struct TextRoom {
    QSize room;
    QString text;
};

TextRoom textOf(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const Label *>(&widget); label && !label->mayBeTooLong())
        return {label->size(), label->Caption()};
    if (const auto *box = qobject_cast<const CheckBox *>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        return {box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box).size(), box->text()};
    }
    if (const auto *list = qobject_cast<const ComboBox *>(&widget)) {
        QStringList items;
        for (int row = 0; row < list->ListCount(); ++row)
            items += list->List(row);
        const auto isShorter = [&](const QString &a, const QString &b) {
            return list->fontMetrics().horizontalAdvance(a) < list->fontMetrics().horizontalAdvance(b);
        };
        constexpr int arrowAndIndent = 25;
        const auto longest = std::max_element(items.begin(), items.end(), isShorter);
        return {list->size() - QSize(arrowAndIndent, 0), longest == items.end() ? QString() : *longest};
    }
    return {};
}

QString faultOf(const QWidget &window, const QWidget &widget)
{
    const QRect place(widget.mapTo(&window, QPoint()), widget.size());
    if (!window.rect().contains(place))
        return u"lies outside"_s;
    const TextRoom text = textOf(widget);
    const QFontMetrics metrics = widget.fontMetrics();
    if (!text.text.isEmpty() && metrics.horizontalAdvance(text.text) > text.room.width())
        return u"is too narrow for \""_s + text.text + u'"';
    return !text.text.isEmpty() && metrics.height() > text.room.height() ? u"is too low"_s : QString();
}
} // namespace

class SkinsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new SkinStyle); }

    void everyWindowIsWholeInEverySkin_data()
    {
        QTest::addColumn<QString>("skin");
        for (const SkinPlace &place : skinsThere())
            QTest::newRow(qPrintable(place.name)) << place.name;
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
            faults +=
                shown.size() == skinned->size() * skinned->devicePixelRatioF() ? QStringList() : QStringList(u"size"_s);
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
