// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/x11_windows.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QWindow>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <tuple>
#include <xcb/xcb.h>

namespace
{
struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
template<class Type>
using Reply = std::unique_ptr<Type, Free>;

// The property that holds the wish: nine numbers, the first says which of the others count.
using WindowHints = std::array<std::uint32_t, 9>;
constexpr std::size_t counting = 0;
constexpr std::size_t firstState = 2;
constexpr std::uint32_t stateCounts = 2;
constexpr std::uint32_t normalState = 1;

xcb_connection_t *x11Connection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}
} // namespace

void forgetMinimised(QWindow &window)
{
    xcb_connection_t *x11 = x11Connection();
    if (!x11 || !window.handle())
        return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_atom_t name = XCB_ATOM_WM_HINTS;
    const auto asked = xcb_get_property(x11, false, id, name, name, 0, std::tuple_size_v<WindowHints>);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x11, asked, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) != sizeof(WindowHints))
        return;
    WindowHints hints;
    std::memcpy(hints.data(), xcb_get_property_value(reply.get()), sizeof hints);
    hints[counting] |= stateCounts;
    hints[firstState] = normalState;
    xcb_change_property(x11, XCB_PROP_MODE_REPLACE, id, name, name, 32, hints.size(), hints.data());
}

bool isX11TrayThere()
{
    xcb_connection_t *x11 = x11Connection();
    if (!x11)
        return false;
    const QByteArray name = "_NET_SYSTEM_TRAY_S0"; // Qt's applications know one screen.
    const auto asked = xcb_intern_atom(x11, true, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(x11, asked, nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const auto askedOwner = xcb_get_selection_owner(x11, atom->atom);
    const Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(x11, askedOwner, nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}
