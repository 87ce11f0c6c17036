// SPDX-License-Identifier: GPL-3.0-or-later
// A library that is loaded when it is first used, so that no start pays for it and its lack is a message instead of a
// dead program. A class derived from it names the functions it needs as members.
#pragma once

#include <QLibrary>

class LoadedLibrary
{
public:
    LoadedLibrary(const QString &name, int version) : m_library(name, version) {}
    LoadedLibrary(const LoadedLibrary &) = delete;
    LoadedLibrary &operator=(const LoadedLibrary &) = delete;

    /// Is the library there, with all functions named so far?
    bool isComplete() const { return m_isComplete; }

    template<typename Type>
    class Function
    {
    public:
        Function(LoadedLibrary &owner, const char *name)
            : m_function(reinterpret_cast<Type *>(owner.m_library.resolve(name)))
        {
            owner.m_isComplete = owner.m_isComplete && m_function;
        }
        operator Type *() const { return m_function; }

    private:
        Type *m_function;
    };

private:
    QLibrary m_library;
    bool m_isComplete = true;
};
