// SPDX-License-Identifier: GPL-3.0-or-later
// An open file of a Unix host, closed when it goes. For the files behind platform/ alone.
#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

constexpr int noHandle = -1;

class Handle
{
public:
    explicit Handle(int handle) : m_handle(handle) {}
    Handle(Handle &&other) noexcept : m_handle(std::exchange(other.m_handle, noHandle)) {}
    Handle &operator=(Handle &&) = delete;
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;
    ~Handle()
    {
        const int reason = errno; // Of the failure that this handle goes for.
        close();
        errno = reason;
    }

    int get() const { return m_handle; }
    bool isOpen() const { return m_handle != noHandle; }
    // Some file systems report a failed write only here.
    bool close() { return m_handle == noHandle || ::close(std::exchange(m_handle, noHandle)) == 0; }

private:
    int m_handle;
};
