// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/drives.h"
#include "platform/file_attributes.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

QString FileAttributeText(const QString &path)
{
    struct stat status = {};
    const bool isFile = ::stat(hostPathOnDisk(path).constData(), &status) == 0 && S_ISREG(status.st_mode);
    return isFile && (status.st_mode & S_IWUSR) == 0 ? u"Read Only"_s : u"Normal"_s;
}
