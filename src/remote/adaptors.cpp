// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/adaptors.h"

using namespace Qt::StringLiterals;

QStringList RootAdaptor::supportedUriSchemes() const
{
    return {u"file"_s};
}

// Those of the desktop file.
QStringList RootAdaptor::supportedMimeTypes() const
{
    return {u"audio/mpeg"_s, u"audio/x-wav"_s, u"audio/vnd.wave"_s, u"audio/x-ms-wma"_s};
}

PlayerAdaptor::PlayerAdaptor(RemoteControl &remote) : QDBusAbstractAdaptor(&remote), m_remote(remote)
{
    connect(&remote, &RemoteControl::jumped, this, &PlayerAdaptor::Seeked);
}

// There is one rate only. None at all means a pause.
void PlayerAdaptor::setRate(double rate)
{
    if (rate == 0)
        m_remote.pause();
}

void addInterfaces(RemoteControl &remote)
{
    new RootAdaptor(remote);
    new PlayerAdaptor(remote);
}
