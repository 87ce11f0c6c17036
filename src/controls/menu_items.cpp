// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/menu_items.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace
{
const QString separator = u"-"_s;
}

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

void MenuItems::popUp(const QPoint &place)
{
    auto *menu = new QMenu;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(objectName());
    fill(*menu);
    connect(menu, &QMenu::triggered, this, [this](const QAction *action) { choose(action->data().toInt()); });
    connect(menu, &QMenu::aboutToHide, this, &MenuItems::closed, Qt::QueuedConnection); // The command runs first.
    menu->popup(place);
}

void MenuItems::choose(int index)
{
    if (index >= 0 && index < count() && m_items[index].caption != separator)
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
        QAction *action = menu.addAction(text.replace(u'&', u"&&"_s));
        action->setData(index);
        action->setCheckable(item.isCheckable);
        action->setChecked(item.isChecked);
    }
}
