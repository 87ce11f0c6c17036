// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/x11_windows.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QWindow>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <tuple>
#include <utility>
#include <xcb/xcb.h>

namespace
{
struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
template<class Type>
using Reply = std::unique_ptr<Type, Free>;

// The property WM_HINTS: nine numbers, the first says which of the others count.
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

xcb_atom_t atomOf(xcb_connection_t *x11, const QByteArray &name)
{
    const auto asked = xcb_intern_atom(x11, false, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x11, asked, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// Asks the server for events about a window, beside those that Qt has asked for.
void listenTo(xcb_connection_t *x11, xcb_window_t window)
{
    const auto asked = xcb_get_window_attributes(x11, window);
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(x11, asked, nullptr));
    if (!reply)
        return;
    const std::uint32_t events = reply->your_event_mask | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(x11, window, XCB_CW_EVENT_MASK, &events);
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

void activateForUser(QWindow &window)
{
    xcb_connection_t *x11 = x11Connection();
    if (!x11 || !window.handle())
        return;
    constexpr std::uint32_t asUser = 2; // As a task bar asks, which acts for the user.
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window.winId());
    message.type = atomOf(x11, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = asUser;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x11)).data->root;
    xcb_send_event(x11, false, root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(x11);
}

void renewOpacity(QWindow &window)
{
    xcb_connection_t *x11 = x11Connection();
    if (!x11 || !window.handle())
        return;
    const auto opacity = static_cast<std::uint32_t>(qRound64(window.opacity() * 0xffffffff));
    const xcb_atom_t name = atomOf(x11, "_NET_WM_WINDOW_OPACITY");
    xcb_change_property(x11, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()), name, XCB_ATOM_CARDINAL,
                        32, 1, &opacity);
    xcb_flush(x11);
}

X11Tray::X11Tray(std::function<void()> changed) : m_changed(std::move(changed))
{
    xcb_connection_t *x11 = x11Connection();
    if (!x11)
        return;
    m_selection = atomOf(x11, "_NET_SYSTEM_TRAY_S0"); // Qt's programs know one screen.
    m_manager = atomOf(x11, "MANAGER");
    listenTo(x11, xcb_setup_roots_iterator(xcb_get_setup(x11)).data->root);
    qGuiApp->installNativeEventFilter(this);
    findOwner();
}

// A new tray sends the root window a message; the window of an old one is destroyed.
bool X11Tray::nativeEventFilter(const QByteArray &type, void *message, qintptr *)
{
    if (type != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<xcb_generic_event_t *>(message);
    const int kind = event->response_type & 0x7f; // Less the mark of what other programs sent.
    const bool hasCome =
        kind == XCB_CLIENT_MESSAGE && static_cast<xcb_client_message_event_t *>(message)->type == m_manager;
    const bool hasGone =
        kind == XCB_DESTROY_NOTIFY && static_cast<xcb_destroy_notify_event_t *>(message)->window == m_owner;
    if (hasCome || hasGone) {
        findOwner();
        m_changed();
    }
    return false;
}

void X11Tray::findOwner()
{
    xcb_connection_t *x11 = x11Connection();
    const auto asked = xcb_get_selection_owner(x11, m_selection);
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(x11, asked, nullptr));
    m_owner = reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
    if (m_owner != XCB_WINDOW_NONE)
        listenTo(x11, m_owner);
}
