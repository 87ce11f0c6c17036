// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/accessible_rows.h"

#include "controls/list_box.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace
{
class RowInterface : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    RowInterface(ListBox &list, int row) : m_list(&list), m_row(row) {}

    int row() const { return m_row; }

    bool isValid() const override { return m_list && m_row < m_list->ListCount(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return isValid() ? parent()->window() : nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(m_list); }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString &) override {}

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid() || (kind != QAccessible::Name && kind != QAccessible::Description))
            return {};
        if (kind == QAccessible::Description)
            return index().data(Qt::AccessibleDescriptionRole).toString();
        const QVariant said = index().data(Qt::AccessibleTextRole);
        return said.isValid() ? said.toString() : index().data().toString();
    }

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect place = m_list->visualRect(index());
        return {m_list->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const bool isInView = m_list->viewport()->rect().intersects(m_list->visualRect(index()));
        state.invisible = !m_list->isVisible() || !isInView;
        state.selectable = true;
        state.focusable = true;
        state.selected = m_row == m_list->ListIndex();
        state.focused = state.selected && m_list->hasFocus();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }

    QStringList actionNames() const override { return {toggleAction(), pressAction()}; }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

    void doAction(const QString &name) override
    {
        if (!isValid())
            return;
        if (name == toggleAction())
            m_list->setListIndex(m_row);
        else if (name == pressAction())
            m_list->pressRow(m_row);
    }

private:
    QModelIndex index() const { return m_list->model()->index(m_row, 0); }

    QPointer<ListBox> m_list;
    int m_row;
};

class ListInterface : public QAccessibleWidget
{
public:
    explicit ListInterface(ListBox &list) : QAccessibleWidget(&list, QAccessible::List) {}

    ~ListInterface() override
    {
        for (const QAccessible::Id id : std::as_const(m_rows))
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return list() ? list()->ListCount() : 0; }

    // Made when asked for, and kept: whoever asked may ask that very one again.
    QAccessibleInterface *child(int row) const override
    {
        if (row < 0 || row >= childCount())
            return nullptr;
        if (const auto known = m_rows.constFind(row); known != m_rows.cend())
            return QAccessible::accessibleInterface(*known);
        auto *made = new RowInterface(*list(), row);
        m_rows.insert(row, QAccessible::registerAccessibleInterface(made));
        return made;
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *row = dynamic_cast<const RowInterface *>(child);
        return row ? row->row() : -1;
    }

    QAccessibleInterface *childAt(int x, int y) const override
    {
        return list() ? child(list()->rowAt(list()->viewport()->mapFromGlobal(QPoint(x, y)))) : nullptr;
    }

    QAccessibleInterface *focusChild() const override
    {
        return list() && list()->hasFocus() ? child(list()->ListIndex()) : nullptr;
    }

private:
    ListBox *list() const { return static_cast<ListBox *>(widget()); }

    mutable QHash<int, QAccessible::Id> m_rows;
};
} // namespace

QAccessibleInterface *makeListInterface(ListBox &list)
{
    return new ListInterface(list);
}
