// SPDX-License-Identifier: GPL-3.0-or-later
// A media engine without sound: it notes what it is told, and reports what a test gives it.
#pragma once

#include "base/last_error.h"
#include "playback/media_engine.h"

#include <QStringList>
#include <QTest>

#include <utility>

class FakeEngine : public MediaEngine
{
public:
    /// A song that nobody asked about was not expected to be opened, played or moved. Loudness may be asked by
    /// volume().
    ~FakeEngine() override
    {
        for (const QString &call : m_calls)
            if (!call.startsWith(u"Volume"))
                QTest::qFail(qPrintable(QStringLiteral("unexpected: ") + call), __FILE__, __LINE__);
    }

    /// The calls since the last question: `FileName z:\a.mp3`, `Play`, `Pause`, `Stop`, `Position 12`, `Volume -600`.
    QStringList takeCalls() { return std::exchange(m_calls, {}); }

    /// What the engine would do by itself.
    void finishSong()
    {
        setSong(0, 0);
        setPlaying(false);
        Q_EMIT endOfStream(0);
    }
    void fail(int number, const QString &description)
    {
        setPlaying(false);
        recordError({number, QStringLiteral("MediaPlayer1"), description});
        Q_EMIT errorOccurred();
    }
    void setSong(double positionSeconds, double durationSeconds)
    {
        m_duration = durationSeconds;
        setPosition(positionSeconds);
    }

    void loseDevice()
    {
        m_isDeviceMissing = true;
        Q_EMIT stateChanged();
    }

    QString fileName() const override { return m_fileName; }
    void setFileName(const QString &path) override
    {
        m_calls += QStringLiteral("FileName ") + path;
        m_fileName = path;
        m_isPaused = false;
        m_position = 0;
    }
    void play() override
    {
        m_calls += QStringLiteral("Play");
        m_isPaused = false;
        setPlaying(!m_fileName.isEmpty());
    }
    void pause() override
    {
        m_calls += QStringLiteral("Pause");
        m_isPaused = !m_fileName.isEmpty();
        setPlaying(false);
    }
    void stop() override
    {
        m_calls += QStringLiteral("Stop");
        m_isPaused = false;
        m_position = 0;
        setPlaying(false);
    }
    double currentPosition() const override { return m_position; }
    void setCurrentPosition(double seconds) override
    {
        m_calls += QStringLiteral("Position %1").arg(seconds);
        setPosition(seconds);
    }
    double duration() const override { return m_duration; }
    int volume() const override { return m_volume; }
    void setVolume(int hundredthsOfDecibel) override
    {
        m_calls += QStringLiteral("Volume %1").arg(hundredthsOfDecibel);
        m_volume = hundredthsOfDecibel;
    }
    bool isPlaying() const override { return m_isPlaying; }
    bool isPaused() const override { return m_isPaused; }
    bool isDeviceMissing() const override { return m_isDeviceMissing; }

private:
    void setPosition(double seconds)
    {
        m_position = seconds;
        Q_EMIT stateChanged();
    }
    void setPlaying(bool on)
    {
        if (std::exchange(m_isPlaying, on) != on)
            Q_EMIT stateChanged();
    }

    QString m_fileName;
    double m_position = 0;
    double m_duration = 0;
    int m_volume = 0;
    bool m_isPlaying = false;
    bool m_isPaused = false;
    bool m_isDeviceMissing = false;
    QStringList m_calls;
};
