// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/accessibility.h"

#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/scroll_bars.h"
#include "controls/skin_window.h"

#include <QAccessibleWidget>

namespace
{
// A label's name is its caption; one that is a button, and a picture button, can be pressed.
class PressableInterface : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::Role role() const override
    {
        return isPressable() ? QAccessible::Button : label() ? QAccessible::StaticText : QAccessible::Graphic;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = control()->isSwitch();
        state.checked = control()->isOn();
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        const bool hasOwnName = label() && !(isPressable() && label()->Caption().isEmpty());
        return kind == QAccessible::Name && hasOwnName ? label()->Caption() : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override
    {
        return (isPressable() ? QStringList{pressAction()} : QStringList()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == pressAction())
            control()->press();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    Label *label() const { return qobject_cast<Label *>(widget()); }
    Pressable *control() const { return static_cast<Pressable *>(widget()); }
    bool isPressable() const { return control()->isButton(); }
};

// A slider. Its accessible value can be set and stepped; both count as the user's doing.
class SliderInterface : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit SliderInterface(SliderBar *bar) : QAccessibleWidget(bar, QAccessible::Slider) {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return bar()->accessibleValue(bar()->value()); }
    QVariant minimumValue() const override { return bar()->accessibleValue(bar()->minimum()); }
    QVariant maximumValue() const override { return bar()->accessibleValue(bar()->maximum()); }
    QVariant minimumStepSize() const override
    {
        return std::max(1, bar()->accessibleValue(bar()->minimum() + bar()->singleStep()) - minimumValue().toInt());
    }
    void setCurrentValue(const QVariant &value) override { bar()->scrollToAccessible(value.toDouble()); }

    QStringList actionNames() const override
    {
        return QStringList{increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == increaseAction() || name == decreaseAction())
            bar()->scrollTo(bar()->value() + (name == increaseAction() ? 1 : -1) * bar()->singleStep());
        else
            QAccessibleWidget::doAction(name);
    }

private:
    SliderBar *bar() const { return static_cast<SliderBar *>(widget()); }
};

// A window of the player; the menu over its list is its own menu.
class WindowInterface : public QAccessibleWidget
{
public:
    explicit WindowInterface(SkinWindow *window) : QAccessibleWidget(window, QAccessible::Window) {}

    QStringList actionNames() const override
    {
        return skin()->listWithMenu() ? QStringList{showMenuAction()} : QStringList();
    }

    void doAction(const QString &name) override
    {
        if (ListBox *list = skin()->listWithMenu(); list && name == showMenuAction())
            list->askForMenu();
    }

private:
    SkinWindow *skin() const { return static_cast<SkinWindow *>(widget()); }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    if (auto *control = qobject_cast<Pressable *>(object))
        return new PressableInterface(control);
    if (auto *bar = qobject_cast<SliderBar *>(object))
        return new SliderInterface(bar);
    if (auto *window = qobject_cast<SkinWindow *>(object))
        return new WindowInterface(window);
    if (auto *frame = qobject_cast<Frame *>(object))
        return new QAccessibleWidget(frame, QAccessible::Grouping);
    if (auto *bar = qobject_cast<ProgressBar *>(object))
        return new QAccessibleWidget(bar, QAccessible::ProgressBar);
    return nullptr;
}
} // namespace

void installAccessibility()
{
    QAccessible::installFactory(makeInterface);
}
