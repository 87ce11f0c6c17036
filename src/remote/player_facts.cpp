// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/player_facts.h"

#include <QDBusObjectPath>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr double microsecondsPerSecond = 1e6;
} // namespace

QString playbackStatus(Playback playback)
{
    switch (playback) {
    case Playback::Playing:
        return u"Playing"_s;
    case Playback::Paused:
        return u"Paused"_s;
    default:
        return u"Stopped"_s;
    }
}

QVariantMap metadata(const PlayerFacts &facts)
{
    QVariantMap song = facts.song;
    if (facts.playback == Playback::Stopped)
        return song;
    song[u"mpris:trackid"_s] = QVariant::fromValue(QDBusObjectPath(trackPath(facts.songNumber)));
    if (facts.lengthSeconds > 0)
        song[u"mpris:length"_s] = microseconds(facts.lengthSeconds);
    return song;
}

QString trackPath(int songNumber)
{
    return u"/org/kivmp3/Song/"_s + QString::number(songNumber);
}

QVariantMap playerProperties(const PlayerFacts &facts)
{
    return {{u"PlaybackStatus"_s, playbackStatus(facts.playback)},
            {u"Metadata"_s, metadata(facts)},
            {u"Volume"_s, facts.volume},
            {u"CanPlay"_s, facts.canPlay},
            {u"CanSeek"_s, facts.canSeek()},
            {u"CanGoNext"_s, facts.canGoNext},
            {u"CanGoPrevious"_s, facts.canGoPrevious}};
}

QVariantMap changedProperties(const QVariantMap &before, const QVariantMap &now)
{
    QVariantMap changed;
    for (auto property = now.cbegin(); property != now.cend(); ++property)
        if (before.value(property.key()) != property.value())
            changed.insert(property.key(), property.value());
    return changed;
}

double volumeOf(int attenuation, int quietest)
{
    return 1.0 - static_cast<double>(attenuation) / quietest;
}

std::optional<int> attenuationOf(double volume, int quietest)
{
    if (std::isnan(volume))
        return std::nullopt;
    return static_cast<int>(std::lround((1.0 - std::clamp(volume, 0.0, 1.0)) * quietest));
}

qint64 microseconds(double seconds)
{
    return std::llround(seconds * microsecondsPerSecond);
}

std::optional<double> jumpTarget(double positionSeconds, qint64 offsetMicroseconds, double lengthSeconds)
{
    const double target = positionSeconds + static_cast<double>(offsetMicroseconds) / microsecondsPerSecond;
    if (target > lengthSeconds)
        return std::nullopt;
    return std::max(target, 0.0);
}
