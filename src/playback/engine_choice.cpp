// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/engine_choice.h"

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
