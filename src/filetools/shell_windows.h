// SPDX-License-Identifier: GPL-3.0-or-later
// The questions of the shell's file operations as message boxes, and the progress of a long copy as a window. One
// object for one operation; the window goes with it.
#pragma once

#include "platform/shell_files.h"

#include <QElapsedTimer>

#include <memory>

class QProgressDialog;

class ShellWindows : public ShellPrompts
{
public:
    /// The progress window appears once the copy has lasted that long.
    explicit ShellWindows(qint64 patienceMs = 1000);
    ~ShellWindows() override;

    bool mayReplace(const QString &path) override;
    bool mayTrash(const QString &path) override;
    bool mayDeleteForGood(const QString &path) override;
    bool copyGoesOn(const QString &path, qint64 done, qint64 total) override;
    void showFailure(const QString &text) override;

private:
    qint64 m_patienceMs;
    QElapsedTimer m_sinceStart;
    std::unique_ptr<QProgressDialog> m_progress;
};
