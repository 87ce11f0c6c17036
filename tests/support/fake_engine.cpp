// A media engine without sound for tests.
#include "support/fake_engine.h"

#include "base/last_error.h"

#include <QTest>

using namespace Qt::StringLiterals;

void FakeEngine::expect(const QStringList &calls)
{
    m_calls.clear();
    m_announced = calls;
}

bool FakeEngine::allCame() const
{
    const bool came = !m_announced || m_announced->isEmpty();
    if (!came)
        QTest::qFail(qPrintable(u"engine call missing: "_s + m_announced->join(u", "_s)), __FILE__, __LINE__);
    return came;
}

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
    note(u"FileName "_s + path);
    m_fileName = path;
    m_position = 0;
}

void FakeEngine::play()
{
    note(u"Play"_s);
    setPlaying(!m_fileName.isEmpty());
}

void FakeEngine::pause()
{
    note(u"Pause"_s);
    setPlaying(false);
}

void FakeEngine::stop()
{
    note(u"Stop"_s);
    m_position = 0;
    setPlaying(false);
}

void FakeEngine::setCurrentPosition(double seconds)
{
    note(u"Position "_s + QString::number(seconds));
    m_position = seconds;
    Q_EMIT stateChanged();
}

void FakeEngine::setVolume(int hundredthsOfDecibel)
{
    note(u"Volume "_s + QString::number(hundredthsOfDecibel));
    m_volume = hundredthsOfDecibel;
}

// A call that was not announced, or comes out of turn, fails the test that runs.
void FakeEngine::note(const QString &call)
{
    m_calls += call;
    if (!m_announced)
        return;
    const QString announced = m_announced->isEmpty() ? u"nothing"_s : m_announced->takeFirst();
    if (call != announced)
        QTest::qFail(qPrintable(u"engine call \"%1\" where \"%2\" was announced"_s.arg(call, announced)), __FILE__,
                     __LINE__);
}

void FakeEngine::setPlaying(bool on)
{
    if (std::exchange(m_isPlaying, on) != on)
        Q_EMIT stateChanged();
}
