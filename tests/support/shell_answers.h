// SPDX-License-Identifier: GPL-3.0-or-later
// The shell's questions, answered beforehand.
#pragma once

#include "platform/shell_files.h"

#include <QStringList>

// Says yes to all but what is refused, and keeps what was asked.
struct ShellAnswers : ShellPrompts {
    QString refused;
    QStringList asked;
    QStringList told;

    bool mayReplace(const QString &) override { return answer(QStringLiteral("replace")); }
    bool mayTrash(const QString &) override { return answer(QStringLiteral("trash")); }
    bool mayDeleteForGood(const QString &) override { return answer(QStringLiteral("delete")); }
    bool copyGoesOn(const QString &, qint64, qint64) override { return answer(QStringLiteral("progress")); }
    void showFailure(const QString &text) override { told += text; }

private:
    bool answer(const QString &question)
    {
        asked += question;
        return question != refused;
    }
};
