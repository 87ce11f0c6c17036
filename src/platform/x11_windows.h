// SPDX-License-Identifier: GPL-3.0-or-later
// What Qt leaves undone under X11. Everywhere else nothing happens.
#pragma once

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>

class QWindow;

/// A window that was once minimised goes on asking to be shown minimised, whenever it is shown after having been
/// hidden. This takes that back; to be called while the window is hidden.
void forgetMinimised(QWindow &window);

/// Brings a window in front because the user has asked for it elsewhere. Window managers let a program bring back its
/// own windows only while the user works with it.
void activateForUser(QWindow &window);

/// Says once more how opaque a window is. Some desktops miss what was said before the window was on the screen; to be
/// called when it is.
void renewOpacity(QWindow &window);

/// The tray of the kind that takes windows in. (The newer kind is found on the session bus.)
class X11Tray : public QAbstractNativeEventFilter
{
public:
    /// changed: a tray has come or gone.
    explicit X11Tray(std::function<void()> changed);

    bool isThere() const { return m_owner != 0; }

    bool nativeEventFilter(const QByteArray &type, void *event, qintptr *result) override;

private:
    void findOwner();

    std::function<void()> m_changed;
    std::uint32_t m_selection = 0; // The atom whose owner the tray is; 0 without X11.
    std::uint32_t m_manager = 0;   // The atom of the message by which a new tray makes itself known.
    std::uint32_t m_owner = 0;     // The tray's window, 0 for none.
};
