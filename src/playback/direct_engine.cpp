// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/direct_engine.h"

#include "base/names.h"
#include "platform/drives.h"
#include "playback/play_fault.h"

#include <algorithm>
#include <utility>

DirectEngine::DirectEngine(QObject *parent) : MediaEngine(parent), m_thread(new SoundThread)
{
    m_requestTimer.setSingleShot(true);
    connect(&m_requestTimer, &QTimer::timeout, this, &DirectEngine::carryOutRequest);
    connect(m_thread.get(), &SoundThread::factsChanged, this, &DirectEngine::takeFacts);
    const auto isCurrent = [this](quint64 song) { return song == m_song && m_request == Request::None; };
    connect(m_thread.get(), &SoundThread::serverMissed, this, [this, isCurrent](quint64 song) {
        if (isCurrent(song))
            Q_EMIT serverMissed();
    });
    connect(m_thread.get(), &SoundThread::declined, this, [this, isCurrent](quint64 song) {
        if (isCurrent(song))
            Q_EMIT declined();
    });
    connect(m_thread.get(), &SoundThread::ended, this, [this, isCurrent](quint64 song) {
        if (isCurrent(song)) {
            m_song = 0;
            Q_EMIT stateChanged();
            Q_EMIT endOfStream(0);
        }
    });
}

DirectEngine::~DirectEngine()
{
    if (!m_thread->finish())
        static_cast<void>(m_thread.release()); // It is stuck, and the program ends without it.
}

void DirectEngine::setFileName(const QString &path)
{
    m_fileName = path;
    if (path.isEmpty())
        stop();
    else
        request(Request::Open);
}

void DirectEngine::play()
{
    if (m_request != Request::None)
        m_request = Request::OpenAndPlay;
    else if (m_song != 0)
        setPaused(false);
    else if (!m_fileName.isEmpty())
        request(Request::OpenAndPlay);
}

void DirectEngine::pause()
{
    if (m_request != Request::None)
        m_request = Request::Open;
    else if (m_song != 0)
        setPaused(true);
}

void DirectEngine::stop()
{
    m_requestTimer.stop();
    m_request = Request::None;
    if (std::exchange(m_song, 0) != 0)
        m_thread->want([this](SoundThread::Wanted &wanted) {
            wanted.song = ++m_songs;
            wanted.hostPath.clear();
        });
    Q_EMIT stateChanged();
}

// The thread begins at once, so that the sound server is reached by the time the song is opened.
void DirectEngine::request(Request request)
{
    m_request = request;
    m_seek = 0;
    m_requestTimer.start(0);
    if (!m_thread->isRunning())
        m_thread->start();
    Q_EMIT stateChanged();
}

void DirectEngine::carryOutRequest()
{
    m_isPaused = std::exchange(m_request, Request::None) == Request::Open;
    if (const std::optional<PlayFault> fault = faultBeforePlaying(m_fileName)) {
        stop();
        recordError(playError(*fault, m_fileName));
        Q_EMIT errorOccurred();
        return;
    }
    m_song = ++m_songs;
    m_thread->want([this](SoundThread::Wanted &wanted) {
        wanted.song = m_song;
        wanted.hostPath = hostPathOnDisk(m_fileName);
        wanted.title = withoutExtension(FileNameFromPath(m_fileName));
        wanted.isPaused = m_isPaused;
        wanted.volume = m_volume;
        wanted.seek = m_seek;
        wanted.place = m_place;
    });
}

void DirectEngine::setPaused(bool on)
{
    if (std::exchange(m_isPaused, on) == on)
        return;
    m_thread->want([on](SoundThread::Wanted &wanted) { wanted.isPaused = on; });
    Q_EMIT stateChanged();
}

double DirectEngine::currentPosition() const
{
    if (m_request == Request::None && m_song == 0)
        return 0;
    const std::optional<SoundThread::Facts> now = facts();
    if (!now || now->seek != m_seek)
        return m_seek != 0 ? seekPlace(m_place, now ? now->duration : 0) : 0;
    const double position = std::max(now->clock.seconds(), now->first);
    return now->duration > 0 ? std::min(position, now->duration) : position;
}

void DirectEngine::setCurrentPosition(double seconds)
{
    if (m_request == Request::None && m_song == 0)
        return;
    m_seek = ++m_seeks;
    m_place = seekPlace(seconds, duration());
    if (m_request == Request::None)
        m_thread->want([this](SoundThread::Wanted &wanted) {
            wanted.seek = m_seek;
            wanted.place = m_place;
        });
    Q_EMIT stateChanged();
}

double DirectEngine::duration() const
{
    const std::optional<SoundThread::Facts> now = facts();
    return now ? now->duration : 0;
}

void DirectEngine::setVolume(int hundredthsOfDecibel)
{
    m_volume = std::clamp(hundredthsOfDecibel, -10000, 0);
    m_thread->want([this](SoundThread::Wanted &wanted) { wanted.volume = m_volume; });
}

bool DirectEngine::isPlaying() const
{
    const std::optional<SoundThread::Facts> now = facts();
    return now && !m_isPaused && now->clock.isRunning();
}

bool DirectEngine::isPaused() const
{
    return m_request == Request::None ? m_song != 0 && m_isPaused : m_request == Request::Open;
}

bool DirectEngine::isDeviceMissing() const
{
    const std::optional<SoundThread::Facts> now = facts();
    return now && now->isSilent;
}

// The facts of the song at hand; none while it is being opened.
std::optional<SoundThread::Facts> DirectEngine::facts() const
{
    if (m_request != Request::None || m_song == 0)
        return std::nullopt;
    const SoundThread::Facts now = m_thread->facts();
    return now.song == m_song ? std::optional(now) : std::nullopt;
}

void DirectEngine::takeFacts()
{
    if (facts())
        Q_EMIT stateChanged();
}
