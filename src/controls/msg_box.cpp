// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/msg_box.h"

#include "base/last_error.h"
#include "controls/control.h"
#include "controls/skin_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScopedValueRollback>

#include <optional>

namespace
{
struct Rehearsal {
    bool isOn = false;
    QList<MsgBox::Answer> answers;
    QList<MsgBox::Shown> shown;
};

Rehearsal &rehearsal()
{
    static Rehearsal state;
    return state;
}

QMessageBox::Icon qtIcon(MsgBox::Icon icon)
{
    switch (icon) {
    case MsgBox::Icon::Information:
        return QMessageBox::Information;
    case MsgBox::Icon::Critical:
        return QMessageBox::Critical;
    case MsgBox::Icon::Question:
        return QMessageBox::Question;
    case MsgBox::Icon::Plain:
        break;
    }
    return QMessageBox::NoIcon;
}

MsgBox::Answer rehearsedAnswer(MsgBox::Buttons buttons)
{
    QList<MsgBox::Answer> &answers = rehearsal().answers;
    if (!answers.isEmpty())
        return answers.takeFirst();
    return buttons == MsgBox::Buttons::Ok ? MsgBox::Answer::Ok : MsgBox::Answer::No;
}
} // namespace

HeldKeys::HeldKeys(QObject *parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool HeldKeys::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return false;
    m_pressedAnew = m_pressedAnew || !isRepeat(*static_cast<QKeyEvent *>(event));
    return !m_pressedAnew;
}

MsgBox::Answer MsgBox::show(const QString &text, const QString &title, Icon icon, Buttons buttons)
{
    if (rehearsal().isOn) {
        rehearsal().shown += Shown{text, title, icon, buttons};
        return rehearsedAnswer(buttons);
    }
    QMessageBox box(qtIcon(icon), title, text, QMessageBox::NoButton, windowAtWork());
    box.setTextFormat(Qt::PlainText);
    box.setStandardButtons(buttons == Buttons::Ok ? QMessageBox::Ok : QMessageBox::Yes | QMessageBox::No);
    if (buttons == Buttons::YesNoAtRisk)
        box.setDefaultButton(QMessageBox::No);
    const HeldKeys kept;
    const int pressed = box.exec();
    if (buttons == Buttons::Ok)
        return Answer::Ok;
    return pressed == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

void MsgBox::showError(const ErrorRecord &error)
{
    static bool isUp = false;
    static std::optional<ErrorRecord> next;
    next = error;
    if (isUp)
        return;
    const QScopedValueRollback up(isUp, true);
    while (next) {
        const ErrorRecord due = *std::exchange(next, {});
        show(errorText(due), errorTitle(due), Icon::Critical);
    }
}

QWidget *MsgBox::windowAtWork()
{
    QWidget *active = QApplication::activeWindow();
    return active ? active : SkinWindow::lastActive();
}

void MsgBox::answerFromNowOn(const QList<Answer> &answers)
{
    rehearsal().isOn = true;
    rehearsal().answers = answers;
}

QList<MsgBox::Shown> MsgBox::takeShown()
{
    return std::exchange(rehearsal().shown, {});
}
