// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/last_error.h"

using namespace Qt::StringLiterals;

namespace
{
ErrorRecord &record()
{
    static ErrorRecord error;
    return error;
}
} // namespace

void recordError(const ErrorRecord &error)
{
    record() = error;
}

const ErrorRecord &lastError()
{
    return record();
}

QString errorTitle(const ErrorRecord &error)
{
    return u"Error - "_s + QString::number(error.number);
}

QString errorText(const ErrorRecord &error)
{
    return error.source + u" - "_s + error.description;
}
