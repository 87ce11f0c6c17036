// A media engine without sound for tests.
#include "support/fake_engine.h"

#include "base/last_error.h"

using namespace Qt::StringLiterals;

void FakeEngine::finishSong()
{
    setSong(0, 0);
    setPlaying(false);
    Q_EMIT endOfStream(0);
}

void FakeEngine::fail(int number, const QString &description)
{
    setPlaying(false);
    recordError({number, u"MediaPlayer1"_s, description});
    Q_EMIT errorOccurred();
}

void FakeEngine::setSong(double positionSeconds, double durationSeconds)
{
    m_position = positionSeconds;
    m_duration = durationSeconds;
    Q_EMIT stateChanged();
}

void FakeEngine::setFileName(const QString &path)
{
    m_calls += u"FileName "_s + path;
    m_fileName = path;
    m_position = 0;
}

void FakeEngine::play()
{
    m_calls += u"Play"_s;
    setPlaying(!m_fileName.isEmpty());
}

void FakeEngine::pause()
{
    m_calls += u"Pause"_s;
    setPlaying(false);
}

void FakeEngine::stop()
{
    m_calls += u"Stop"_s;
    m_position = 0;
    setPlaying(false);
}

void FakeEngine::setCurrentPosition(double seconds)
{
    m_calls += u"Position "_s + QString::number(seconds);
    m_position = seconds;
    Q_EMIT stateChanged();
}

void FakeEngine::setVolume(int hundredthsOfDecibel)
{
    m_calls += u"Volume "_s + QString::number(hundredthsOfDecibel);
    m_volume = hundredthsOfDecibel;
}

void FakeEngine::setPlaying(bool on)
{
    if (std::exchange(m_isPlaying, on) != on)
        Q_EMIT stateChanged();
}
