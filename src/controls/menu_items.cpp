// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/menu_items.h"

#include <QMenu>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{
const QString separator = u"-"_s;
constexpr int noItem = -1;
} // namespace

MenuItems::MenuItems(QObject *parent, const QString &name, const QStringList &captions) : QObject(parent)
{
    setObjectName(name);
    for (const QString &caption : captions)
        m_items += Item{caption};
}

void MenuItems::setCheckable(std::initializer_list<int> indexes)
{
    for (const int index : indexes)
        m_items[index].isCheckable = true;
}

void MenuItems::setChecked(int index, bool isChecked)
{
    m_items[index].isChecked = isChecked;
}

void MenuItems::setCaption(int index, const QString &caption)
{
    m_items[index].caption = caption;
}

// The command may open windows and wait for their answers, so it runs once Qt has left the menu and the menu is gone.
// A press that closes the menu may open it anew before that: then it is still up when the first command has run.
void MenuItems::popUp(const QPoint &place)
{
    auto *menu = new QMenu;
    menu->setObjectName(objectName());
    fill(*menu);
    const auto chosen = std::make_shared<int>(noItem);
    connect(menu, &QMenu::triggered, menu, [menu, chosen](const QAction *action) {
        *chosen = action->data().toInt();
        menu->hide(); // An assistive tool leaves it open.
    });
    const auto finish = [this, menu, chosen] {
        delete menu;
        choose(*chosen);
        if (!m_menu)
            Q_EMIT closed();
    };
    connect(menu, &QMenu::aboutToHide, this, finish, Qt::QueuedConnection);
    m_menu = menu;
    menu->popup(place);
}

void MenuItems::choose(int index)
{
    if (index >= 0 && index < count() && m_items[index].caption != separator && m_items[index].isEnabled)
        Q_EMIT Click(index);
}

void MenuItems::fill(QMenu &menu)
{
    for (int index = 0; index < count(); ++index) {
        const Item &item = m_items[index];
        if (item.caption == separator) {
            menu.addSeparator();
            continue;
        }
        QString text = item.caption;
        QAction *action = menu.addAction(text.replace(u'&', u"&&"_s).replace(u'\t', u' ')); // No key, no column.
        action->setData(index);
        action->setCheckable(item.isCheckable);
        action->setChecked(item.isChecked);
        action->setEnabled(item.isEnabled);
    }
}
