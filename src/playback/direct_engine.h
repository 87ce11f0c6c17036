// SPDX-License-Identifier: GPL-3.0-or-later
// The media engine for MP3 and WAV: a decoder of their own and the sound server, joined by a thread. Nothing here waits
// for that thread: it is told what is wanted, and what it says about an older song is dropped.
#pragma once

#include "playback/media_engine.h"
#include "playback/sound_thread.h"

#include <QTimer>

#include <optional>

class DirectEngine : public MediaEngine
{
    Q_OBJECT

public:
    explicit DirectEngine(QObject *parent = nullptr);
    ~DirectEngine() override;

    QString fileName() const override { return m_fileName; }
    void setFileName(const QString &path) override;
    void play() override;
    void pause() override;
    void stop() override;
    double currentPosition() const override;
    void setCurrentPosition(double seconds) override;
    double duration() const override;
    int volume() const override { return m_volume; }
    void setVolume(int hundredthsOfDecibel) override;
    bool isPlaying() const override;
    bool isPaused() const override;
    bool isDeviceMissing() const override;

Q_SIGNALS:
    /// The file exists, but is no song that can be decoded here. Nothing plays.
    void declined();

    /// There is no sound server; the song begins silently.
    void serverMissed();

private:
    enum class Request { None, Open, OpenAndPlay }; // What the zero timer will carry out.

    void request(Request request);
    void carryOutRequest();
    void setPaused(bool on);
    std::optional<SoundThread::Facts> facts() const;
    void takeFacts();

    QString m_fileName;
    int m_volume = 0;
    bool m_isPaused = false;
    Request m_request = Request::None;
    QTimer m_requestTimer;
    quint64 m_song = 0; // The number of the song that plays; 0 for none.
    quint64 m_songs = 0;
    quint64 m_seek = 0; // The number of the last seek in it.
    quint64 m_seeks = 0;
    double m_place = 0; // Where that seek goes; shown until it is done.
    std::unique_ptr<SoundThread> m_thread;
};
