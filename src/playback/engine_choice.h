// SPDX-License-Identifier: GPL-3.0-or-later
// The engine that a song needs: MP3 and WAV are played by DirectEngine. libmpv, which takes much longer to load, plays
// every other kind, an .mp3 that is something else inside, and where there is no sound server. The rest of the player
// knows this one engine.
#pragma once

#include "playback/direct_engine.h"
#include "playback/mpv_engine.h"

class EngineChoice : public MediaEngine
{
    Q_OBJECT

public:
    explicit EngineChoice(QObject *parent = nullptr);

    /// libmpv waits until release(), see MpvEngine.
    void deferUntilShown() { m_mpv.deferUntilShown(); }
    void release() { m_mpv.release(); }

    QString fileName() const override { return m_engine->fileName(); }
    void setFileName(const QString &path) override;
    void play() override { m_engine->play(); }
    void pause() override { m_engine->pause(); }
    void stop() override { m_engine->stop(); }
    double currentPosition() const override { return m_engine->currentPosition(); }
    void setCurrentPosition(double seconds) override { m_engine->setCurrentPosition(seconds); }
    double duration() const override { return m_engine->duration(); }
    int volume() const override { return m_direct.volume(); }
    void setVolume(int hundredthsOfDecibel) override;
    bool isPlaying() const override { return m_engine->isPlaying(); }
    bool isPaused() const override { return m_engine->isPaused(); }
    bool isDeviceMissing() const override { return m_engine->isDeviceMissing(); }

private:
    void forward(MediaEngine &engine);
    void goOnWithMpv();
    void reportDevice();

    DirectEngine m_direct;
    MpvEngine m_mpv;
    MediaEngine *m_engine = &m_direct; // The one for the song at hand.
    bool m_isLackReported = false;
};
