// A media engine without sound: it notes what it is told, and reports what a test gives it.
#pragma once

#include "playback/media_engine.h"

#include <QStringList>

#include <utility>

class FakeEngine : public MediaEngine
{
    Q_OBJECT

public:
    using MediaEngine::MediaEngine;

    /// The calls since the last question: `FileName z:\a.mp3`, `Play`, `Pause`, `Stop`, `Position 12`, `Volume -600`.
    QStringList takeCalls() { return std::exchange(m_calls, {}); }

    /// What the engine would do by itself.
    void finishSong();
    void fail(int number, const QString &description);
    void setSong(double positionSeconds, double durationSeconds);

    QString fileName() const override { return m_fileName; }
    void setFileName(const QString &path) override;
    void play() override;
    void pause() override;
    void stop() override;
    double currentPosition() const override { return m_position; }
    void setCurrentPosition(double seconds) override;
    double duration() const override { return m_duration; }
    int volume() const override { return m_volume; }
    void setVolume(int hundredthsOfDecibel) override;
    bool isPlaying() const override { return m_isPlaying; }

private:
    void setPlaying(bool on);

    QString m_fileName;
    double m_position = 0;
    double m_duration = 0;
    int m_volume = 0;
    bool m_isPlaying = false;
    QStringList m_calls;
};
