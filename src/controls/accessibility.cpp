// What assistive tools see of the player's own controls.
#include "controls/accessibility.h"

#include "controls/label.h"

#include <QAccessibleWidget>

namespace
{
// A label tells its caption as its name; one that is a button, and a picture button, can be pressed.
class PressableInterface : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::Role role() const override
    {
        return isPressable() ? QAccessible::Button : label() ? QAccessible::StaticText : QAccessible::Graphic;
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && label() ? label()->Caption() : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override { return isPressable() ? QStringList{pressAction()} : QStringList(); }

    void doAction(const QString &name) override
    {
        if (name == pressAction())
            control()->press();
    }

private:
    Label *label() const { return qobject_cast<Label *>(widget()); }
    Pressable *control() const { return static_cast<Pressable *>(widget()); }
    bool isPressable() const { return control()->isButton(); }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *control = qobject_cast<Pressable *>(object);
    return control ? new PressableInterface(control) : nullptr;
}
} // namespace

void installAccessibility()
{
    QAccessible::installFactory(makeInterface);
}
