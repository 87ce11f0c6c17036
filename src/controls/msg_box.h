// SPDX-License-Identifier: GPL-3.0-or-later
// Message boxes, and what every dialog needs against keys that are held. A test answers boxes beforehand and reads what
// was shown; no window opens then.
#pragma once

#include <QList>
#include <QObject>
#include <QString>

struct ErrorRecord;
class QWidget;

/// Keeps a window that opens from the key that opened it: while that key is held and repeats by itself, no window
/// learns of it, until a key goes down anew. One object for one window: its child, or on the stack beside its exec().
class HeldKeys : public QObject
{
    Q_OBJECT

public:
    explicit HeldKeys(QObject *parent = nullptr);

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    bool m_pressedAnew = false;
};

class MsgBox
{
public:
    enum class Icon { Plain, Information, Critical, Question };
    enum class Buttons {
        Ok,
        YesNo,
        YesNoAtRisk, // Something would be lost for good: Enter alone says No.
    };
    enum class Answer { Ok, Yes, No };

    struct Shown {
        QString text;
        QString title;
        Icon icon;
        Buttons buttons;
    };

    /// Shows a message over the window at work and waits for the answer; closing a Yes/No box answers No. A key that
    /// was held when the box opened gives no answer.
    static Answer show(const QString &text, const QString &title, Icon icon = Icon::Plain,
                       Buttons buttons = Buttons::Ok);

    /// The error box: title "Error - " and the number, text the source, " - " and the description, critical, OK. Of the
    /// errors that come while one is up, the last is shown after it.
    static void showError(const ErrorRecord &error);

    /// The window that a box belongs over: the one at work, or the one that was until a dialog over it closed; none
    /// when nobody can see it.
    static QWidget *windowAtWork();

    /// From now on nothing opens: boxes are noted and answered in the order of the answers, Ok (or No) after the last.
    static void answerFromNowOn(const QList<Answer> &answers);

    /// The boxes noted since the last call.
    static QList<Shown> takeShown();
};
