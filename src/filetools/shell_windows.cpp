// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/shell_windows.h"

#include "controls/msg_box.h"
#include "platform/drives.h"

#include <QProgressDialog>

using namespace Qt::StringLiterals;

namespace
{
constexpr int fullBar = 1000; // Bytes would not fit into the bar's numbers.

bool saysYes(const QString &question, const QString &title, MsgBox::Buttons buttons)
{
    return MsgBox::show(question, title, MsgBox::Icon::Question, buttons) == MsgBox::Answer::Yes;
}

std::unique_ptr<QProgressDialog> progressWindow(const QString &path)
{
    auto window = std::make_unique<QProgressDialog>(u"Copying %1"_s.arg(displayPath(path)), u"Cancel"_s, 0, fullBar,
                                                    MsgBox::windowAtWork());
    window->setObjectName(u"CopyProgress"_s);
    window->setWindowTitle(u"Copying"_s);
    window->setWindowModality(Qt::ApplicationModal); // The list the song is in must not change meanwhile.
    window->setMinimumDuration(0);
    window->setAutoReset(false);
    window->setAutoClose(false);
    new HeldKeys(window.get());
    window->show();
    return window;
}
} // namespace

ShellWindows::ShellWindows(qint64 patienceMs) : m_patienceMs(patienceMs) {}

ShellWindows::~ShellWindows() = default;

bool ShellWindows::mayReplace(const QString &path)
{
    return saysYes(u"There is already a file %1. Do you want to replace it?"_s.arg(displayPath(path)),
                   u"Replace File"_s, MsgBox::Buttons::YesNoAtRisk);
}

bool ShellWindows::mayTrash(const QString &path)
{
    return saysYes(u"Do you want to move %1 to the trash?"_s.arg(displayPath(path)), u"Delete File"_s,
                   MsgBox::Buttons::YesNo);
}

bool ShellWindows::mayDeleteForGood(const QString &path)
{
    return saysYes(u"%1 cannot be moved to the trash. Do you want to delete it for good?"_s.arg(displayPath(path)),
                   u"Delete File"_s, MsgBox::Buttons::YesNoAtRisk);
}

bool ShellWindows::copyGoesOn(const QString &path, qint64 done, qint64 total)
{
    if (!m_sinceStart.isValid())
        m_sinceStart.start();
    if (!m_progress && m_sinceStart.elapsed() < m_patienceMs)
        return true;
    if (!m_progress)
        m_progress = progressWindow(path);
    m_progress->setValue(total > 0 ? static_cast<int>(done * fullBar / total) : fullBar); // Lets events run.
    return !m_progress->wasCanceled();
}

void ShellWindows::showFailure(const QString &text)
{
    MsgBox::show(text, u"File Error"_s, MsgBox::Icon::Critical);
}
