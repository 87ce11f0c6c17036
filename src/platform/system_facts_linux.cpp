// SPDX-License-Identifier: GPL-3.0-or-later
// What runs here, on Linux: the processes are folders of /proc.
#include "platform/file_names.h"
#include "platform/system_facts.h"

#include <QDir>
#include <QFile>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace
{
// The name the process gave itself; "" when it has ended since.
QString nameOf(const QString &process)
{
    QFile file(u"/proc/"_s + process + u"/comm"_s);
    return file.open(QIODevice::ReadOnly) ? nameFromHost(file.readAll().trimmed()) : QString();
}
} // namespace

QString systemVersionText()
{
    return QSysInfo::prettyProductName() + u", "_s + QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion();
}

QStringList runningProcesses()
{
    QList<int> numbers;
    for (const QString &entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        bool isProcess = false;
        const int number = entry.toInt(&isProcess);
        if (isProcess)
            numbers += number;
    }
    std::sort(numbers.begin(), numbers.end());
    QStringList processes;
    for (const int number : numbers) {
        const QString name = nameOf(QString::number(number));
        if (!name.isEmpty())
            processes += QString::number(number).rightJustified(7) + u"  "_s + name;
    }
    return processes;
}
