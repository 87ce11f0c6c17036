// SPDX-License-Identifier: GPL-3.0-or-later
// Message boxes. A test answers beforehand and reads what was shown; no window opens then.
#pragma once

#include <QList>
#include <QString>

struct ErrorRecord;
class QWidget;

class MsgBox
{
public:
    enum class Icon { Plain, Information, Critical, Question };
    enum class Buttons { Ok, YesNo };
    enum class Answer { Ok, Yes, No };

    struct Shown {
        QString text;
        QString title;
        Icon icon;
    };

    /// Shows a message and waits for the answer; closing a Yes/No box answers No.
    static Answer show(const QString &text, const QString &title, Icon icon = Icon::Plain,
                       Buttons buttons = Buttons::Ok);

    /// The error box: title "Error - " and the number, text the source, " - " and the description, critical, OK.
    static void showError(const ErrorRecord &error);

    /// From now on nothing opens: boxes are noted and answered in the order of the answers, Ok (or No) after the last.
    static void answerFromNowOn(const QList<Answer> &answers);

    /// The boxes noted since the last call.
    static QList<Shown> takeShown();
};
