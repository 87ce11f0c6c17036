// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/dropped_skin.h"

#include "app/version.h"
#include "controls/msg_box.h"

using namespace Qt::StringLiterals;

KeptSkin keepAsking(const QString &path)
{
    const SkinFiles files = skinIn(path);
    KeptSkin kept = keepSkin(files, Existing::Keep);
    if (kept.result == RenameResult::OtherExists) {
        const QString question = u"There is a skin \"%1\" already. Replace it?"_s.arg(kept.name);
        const auto answer = MsgBox::show(question, programName(), MsgBox::Icon::Question, MsgBox::Buttons::YesNoAtRisk);
        if (answer == MsgBox::Answer::Yes)
            kept = keepSkin(files, Existing::Replace);
    }
    if (kept.result == RenameResult::Failed)
        MsgBox::show(kept.fault, programName(), MsgBox::Icon::Critical);
    return kept;
}
