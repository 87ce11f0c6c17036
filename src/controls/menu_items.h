// SPDX-License-Identifier: GPL-3.0-or-later
// A context menu as an array of items: captions and check marks by index, one Click for all. The check marks are state
// in their own right, whether the menu is up or not; the window for it is made when it opens.
#pragma once

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>

class QMenu;

class MenuItems : public QObject
{
    Q_OBJECT

public:
    /// Captions by index; "-" is a separator and takes an index too.
    MenuItems(QObject *parent, const QString &name, const QStringList &captions);

    /// Says which items can be checked: they are shown as such while they are unchecked, too.
    void setCheckable(std::initializer_list<int> indexes);

    bool Checked(int index) const { return m_items.at(index).isChecked; }

    /// Sets a check mark; fires nothing.
    void setChecked(int index, bool isChecked);

    QString Caption(int index) const { return m_items.at(index).caption; }
    void setCaption(int index, const QString &caption);

    int count() const { return static_cast<int>(m_items.size()); }

    /// An item that cannot be chosen is dim.
    void setEnabled(int index, bool isEnabled) { m_items[index].isEnabled = isEnabled; }

    /// Opens the menu at a point of the screen and returns at once. The command of the chosen item runs from the event
    /// loop when the menu is gone.
    void popUp(const QPoint &place);

    /// Runs an item as choosing it does. A separator, a dim item or an index outside does nothing.
    void choose(int index);

Q_SIGNALS:
    void Click(int index);

    /// The menu is gone: dismissed, or its command has run.
    void closed();

private:
    struct Item {
        QString caption;
        bool isCheckable = false;
        bool isChecked = false;
        bool isEnabled = true;
    };
    void fill(QMenu &menu);

    QList<Item> m_items;
    QPointer<QMenu> m_menu; // The one that was opened last, while it lives.
};
