// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/accessibility.h"

#include "controls/accessible_rows.h"
#include "controls/fields.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/scroll_bars.h"
#include "controls/skin_window.h"

#include <QAbstractItemView>
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
        state.invisible = state.invisible || control()->isUntold();
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        const bool hasOwnName = label() && !(isPressable() && label()->Caption().isEmpty());
        return kind == QAccessible::Name && hasOwnName ? label()->words() : QAccessibleWidget::text(kind);
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

    QString text(QAccessible::Text kind) const override
    {
        const QString text = QAccessibleWidget::text(kind);
        const QString place = kind == QAccessible::Name ? bar()->placeInWords() : QString();
        return place.isEmpty() ? text : text + QStringLiteral(", ") + place;
    }

    QVariant currentValue() const override { return bar()->accessibleValue(bar()->Value()); }
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
            setCurrentValue(currentValue().toInt() + (name == increaseAction() ? 1 : -1) * minimumStepSize().toInt());
        else
            QAccessibleWidget::doAction(name);
    }

private:
    SliderBar *bar() const { return static_cast<SliderBar *>(widget()); }
};

// A drop-down list: its name is its own, its text is the chosen item.
class ComboInterface : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit ComboInterface(ComboBox *box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? box()->currentText() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = box()->view()->isVisible();
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(box()->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child && child->object() == box()->view() ? 0 : -1;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString &) override
    {
        if (box()->view()->isVisible())
            box()->hidePopup();
        else if (box()->isEnabled())
            box()->showPopup();
    }

    QString text(int start, int end) const override
    {
        return box()->currentText().mid(start, end < 0 ? -1 : end - start);
    }
    int characterCount() const override { return static_cast<int>(box()->currentText().size()); }
    int selectionCount() const override { return 0; }
    void selection(int, int *start, int *end) const override { *start = *end = 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint &) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int *start, int *end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

private:
    ComboBox *box() const { return static_cast<ComboBox *>(widget()); }
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
    if (auto *list = qobject_cast<ListBox *>(object))
        return makeListInterface(*list);
    if (auto *box = qobject_cast<ComboBox *>(object))
        return new ComboInterface(box);
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
