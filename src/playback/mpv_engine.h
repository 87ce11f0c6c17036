// SPDX-License-Identifier: GPL-3.0-or-later
// The media engine on libmpv. The library is loaded when the first song is opened, after the handler that asked for it
// has returned; a start without a song never pays for it. Everything happens on the user-interface thread and nothing
// here waits for libmpv: commands and questions are handed over, answers come as events. News of an older song is
// known by its serial number and dropped.
#pragma once

#include "playback/media_engine.h"
#include "playback/mpv_core.h"
#include "playback/position_clock.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>
#include <optional>

enum class PlayFault;

class MpvEngine : public MediaEngine, private MpvListener
{
    Q_OBJECT

public:
    explicit MpvEngine(QObject *parent = nullptr);
    ~MpvEngine() override;

    /// Songs asked for from now on wait until release(), so that the first window is on the screen before the library
    /// is loaded. Two seconds are the longest wait: a window that never shows does not silence the player.
    void deferUntilShown();
    void release();

    QString fileName() const override { return m_fileName; }
    void setFileName(const QString &path) override;
    void play() override;
    void pause() override;
    void stop() override;
    double currentPosition() const override;
    void setCurrentPosition(double seconds) override;
    double duration() const override { return m_duration; }
    int volume() const override { return m_volume; }
    void setVolume(int hundredthsOfDecibel) override;
    bool isPlaying() const override;
    bool isPaused() const override;
    bool isDeviceMissing() const override;

private:
    enum class Request { None, Open, OpenAndPlay };           // What the zero timer will carry out.
    enum class Song { None, Asked, Opening, Open, Sounding }; // Open: its length is known.

    void ask(Request request);
    void carryOutRequest();
    bool startCore();
    void forgetSong();
    void forgetNews();
    void setPaused(bool on);
    void setClock(double seconds);
    void refreshClock() const;
    bool isOpen() const { return m_request == Request::None && m_song >= Song::Open; }
    void seek();
    void seekTo(double seconds);
    void watchDevice();
    void lookForDevice();
    void fail(PlayFault fault, const QString &detail = {});
    bool isCurrent(qint64 entry) const;

    void songAccepted(quint64 serial, qint64 entry) override;
    void songStarted(qint64 entry) override;
    void songOpened() override;
    void soundStarted() override;
    void songEnded(qint64 entry) override;
    void songFailed(qint64 entry, MpvFailure failure, const QString &reason) override;
    void positionAnswered(quint64 serial, double seconds) override;
    void durationAnswered(quint64 serial, double seconds) override;
    void deviceChanged() override;

    std::unique_ptr<MpvCore> m_core; // Null until the first song.
    QString m_fileName;
    int m_volume = 0;

    Request m_request = Request::None;
    QTimer m_requestTimer;
    bool m_isDeferred = false;

    Song m_song = Song::None;
    quint64 m_serial = 0;     // Counts everything that makes earlier answers worthless.
    quint64 m_songSerial = 0; // The serial of the song asked for last.
    qint64 m_entry = 0;       // libmpv's number of that song; 0 until it is known.
    bool m_isPaused = false;
    double m_duration = 0;

    // The position moves on with the clock and is corrected by libmpv now and then: asking it each time wakes it up.
    PositionClock m_clock;
    mutable QElapsedTimer m_sinceAsked; // Since libmpv was last asked for the position.
    std::optional<double> m_seekTarget; // The position shown until the seek is done.
    QElapsedTimer m_sinceSeek;

    QTimer m_deviceTimer; // Runs while a song plays to no device.
};
