// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/engine_choice.h"

#include "platform/terminal.h"

namespace
{
bool isForDirectEngine(const QString &path)
{
    return path.endsWith(QStringLiteral(".mp3"), Qt::CaseInsensitive) ||
           path.endsWith(QStringLiteral(".wav"), Qt::CaseInsensitive);
}
} // namespace

EngineChoice::EngineChoice(QObject *parent) : MediaEngine(parent)
{
    forward(m_direct);
    forward(m_mpv);
    connect(&m_direct, &DirectEngine::declined, this, &EngineChoice::goOnWithMpv);
    connect(&m_direct, &DirectEngine::serverMissed, this, [this] {
        if (MpvCore::isInstalled())
            goOnWithMpv();
    });
    // Not before the song has gone over to libmpv, which may know a device.
    connect(this, &MediaEngine::stateChanged, this, &EngineChoice::reportDevice, Qt::QueuedConnection);
}

void EngineChoice::forward(MediaEngine &engine)
{
    const auto pass = [this, &engine](auto signal) {
        connect(&engine, signal, this, [this, &engine, signal](auto... arguments) {
            if (m_engine == &engine)
                Q_EMIT(this->*signal)(arguments...);
        });
    };
    pass(&MediaEngine::endOfStream);
    pass(&MediaEngine::errorOccurred);
    pass(&MediaEngine::stateChanged);
}

void EngineChoice::setFileName(const QString &path)
{
    MediaEngine *const before = m_engine;
    m_engine = isForDirectEngine(path) ? static_cast<MediaEngine *>(&m_direct) : &m_mpv;
    if (before != m_engine)
        before->setFileName({});
    m_engine->setFileName(path);
}

void EngineChoice::setVolume(int hundredthsOfDecibel)
{
    m_direct.setVolume(hundredthsOfDecibel);
    m_mpv.setVolume(hundredthsOfDecibel);
}

// The song is taken over as it is, at the place that was asked for.
void EngineChoice::goOnWithMpv()
{
    const QString path = m_direct.fileName();
    const double place = m_direct.currentPosition();
    const bool isPaused = m_direct.isPaused();
    m_engine = &m_mpv;
    m_direct.setFileName({});
    m_mpv.setFileName(path);
    if (!isPaused)
        m_mpv.play();
    if (place > 0)
        m_mpv.setCurrentPosition(place);
}

// Once, until a song is heard again.
void EngineChoice::reportDevice()
{
    if (!isPlaying())
        return;
    const bool isMissing = isDeviceMissing();
    if (isMissing && !m_isLackReported)
        printError("no sound device can be reached: songs play silently");
    m_isLackReported = isMissing;
}
