// What assistive tools see of the player's own controls.
#include "controls/accessibility.h"

#include "controls/label.h"
#include "controls/picture_box.h"

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
        if (name != pressAction())
            return;
        if (label())
            label()->press();
        else if (auto *picture = qobject_cast<PictureBox *>(widget()))
            picture->press();
    }

private:
    Label *label() const { return qobject_cast<Label *>(widget()); }
    bool isPressable() const { return label() ? label()->isButton() : widget()->focusPolicy() != Qt::NoFocus; }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    const bool isOurs = qobject_cast<Label *>(object) || qobject_cast<PictureBox *>(object);
    return isOurs ? new PressableInterface(static_cast<QWidget *>(object)) : nullptr;
}
} // namespace

void installAccessibility()
{
    QAccessible::installFactory(makeInterface);
}
