// SPDX-License-Identifier: GPL-3.0-or-later
// The thread that keeps a song sounding while windows are busy: it fills the output from the decoder.
//
// The rule: the user-interface thread says what is wanted and reads the facts, both under m_mutex, which is never
// locked while anything is read, decoded, sent or waited for. Everything marked as the thread's own is touched by run()
// alone. Nothing here knows a window; signals are delivered on the user-interface thread.
#pragma once

#include "playback/position_clock.h"
#include "playback/sound_output.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QThread>

#include <functional>
#include <optional>
#include <vector>

class SoundThread : public QThread
{
    Q_OBJECT

public:
    /// The state to bring about. Songs and seeks have numbers of their own: another number is another song or seek.
    struct Wanted {
        quint64 song = 0;
        QByteArray hostPath; // "" for silence.
        QString title;
        bool isPaused = false;
        int volume = 0;
        quint64 seek = 0;
        double place = 0;
        bool isOver = false; // The thread ends.
    };

    /// What is the case.
    struct Facts {
        quint64 song = 0; // The song these are about, 0 for none.
        quint64 seek = 0; // The last seek that was done.
        PositionClock clock;
        double first = 0; // The place the song was begun at or sought to: what is heard before it belongs elsewhere.
        double duration = 0;
        bool isSilent = false; // There is nothing to hear it with.
    };

    void want(const std::function<void(Wanted &)> &change);
    Facts facts() const;

    /// Ends the thread. False when it is stuck, as in a disk that does not answer; it is to be left alone then.
    bool finish();

Q_SIGNALS:
    void factsChanged();
    void serverMissed(quint64 song); // The song begins silently.
    void declined(quint64 song);     // No song that can be decoded here.
    void ended(quint64 song);

protected:
    void run() override;

private:
    struct Ramp {
        qint64 start = 0;
        float from = 1, to = 1;
    };

    void follow(const Wanted &wanted);
    void changeSong(const Wanted &wanted);
    void seek(double place);
    void setGain(float gain);
    void fill();
    void decode(qint64 count);
    void send(std::size_t place, qint64 count);
    const float *atLoudness(const float *frames, qint64 count);
    qint64 takeBack();
    void leave();
    void forgetHeard();
    float gainAt(qint64 frame) const;
    void endSong();
    void closeOutput();
    int msToWait() const;
    qint64 readyFrames() const { return static_cast<qint64>(m_ready.size()) / m_format.channels; }
    void publish();

    mutable QMutex m_mutex;
    Wanted m_wanted;
    Facts m_facts;
    std::unique_ptr<SoundOutput> m_output; // Made and destroyed under the mutex; woken under it.

    // The thread's own.
    Wanted m_done;
    std::unique_ptr<SongDecoder> m_decoder; // Null when no song plays.
    SoundFormat m_format;
    std::vector<float> m_ready;  // As decoded: what was sent and may not have been heard yet.
    std::vector<float> m_scaled; // A part of it at the present loudness.
    qint64 m_sent = 0;           // Frames sent to the output since it was opened.
    qint64 m_next = 0;           // The song's frame to decode next.
    qint64 m_first = 0;
    Ramp m_ramp; // The loudness by frames sent.
    bool m_isAtEnd = false;
    bool m_isRefined = false;
    std::optional<QDeadlineTimer> m_leaving; // The song has ended; so long the output waits for the next one.
    bool m_isServerKnown = false;            // It is known for this song whether there is a server.
};
