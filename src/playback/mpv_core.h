// SPDX-License-Identifier: GPL-3.0-or-later
// libmpv, loaded when started and never waited for. No other class knows its header. Its events are delivered on the
// user-interface thread, from the event loop.
#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>

#include <memory>

enum class MpvFailure { Loading, Device, NothingToPlay, UnknownFormat, Other };

/// Receives libmpv's events. A song's entry is libmpv's number for it; a serial is that of the question.
class MpvListener
{
public:
    virtual void songAccepted(quint64 serial, qint64 entry) = 0; // Entry 0: refused.
    virtual void songStarted(qint64 entry) = 0;
    virtual void songOpened() = 0;   // Its length can be asked now.
    virtual void soundStarted() = 0; // At the beginning and after each seek.
    virtual void songEnded(qint64 entry) = 0;
    virtual void songFailed(qint64 entry, MpvFailure failure, const QString &reason) = 0;
    virtual void positionAnswered(quint64 serial, double seconds) = 0;
    virtual void durationAnswered(quint64 serial, double seconds) = 0; // 0: not known.
    virtual void deviceChanged() = 0;                                  // isDeviceMissing() is another.

protected:
    ~MpvListener() = default;
};

class MpvCore : public QObject
{
    Q_OBJECT

public:
    /// Can libmpv be loaded?
    static bool isInstalled();

    explicit MpvCore(MpvListener &listener);
    ~MpvCore() override;

    /// Loads the library and starts it with this loudness. False when it cannot be used.
    bool start(int hundredthsOfDecibel);

    /// Opens a song, by the host's bytes, in place of the one before. The title is what mixers show.
    void load(const QByteArray &hostPath, const QByteArray &title, quint64 serial);
    void stop();
    void seek(double seconds);
    void setPause(bool on);

    /// True when the sound device was closed and opened anew for it: the caller seeks to where the song was.
    bool setVolume(int hundredthsOfDecibel);

    /// Is there no device, so that songs play to nobody?
    bool isDeviceMissing() const { return m_isDeviceMissing; }

    /// Looks for a device again. The caller seeks to where the song was, as after setVolume().
    void reopenDevice();

    /// Answered by positionAnswered() (not at all when there is no position) and durationAnswered().
    void askPosition(quint64 serial);
    void askDuration(quint64 serial);

private:
    struct Functions;

    void setOption(const char *name, const QByteArray &value);
    void chooseOutput();
    void setFarAhead(bool on);
    void command(const QList<QByteArray> &words, quint64 serial = 0);
    void drain();
    static void wake(void *core);
    void noteRest(const struct mpv_event &event);
    void deliver(const struct mpv_event &event);
    void deliverEnd(const struct mpv_event_end_file &end);
    void deliverAnswer(const struct mpv_event &event);
    void noteDevice(const struct mpv_event_property &output);

    MpvListener &m_listener;
    std::unique_ptr<Functions> m_mpv;
    struct mpv_handle *m_handle = nullptr;
    bool m_isSilenceWanted = false; // No sound device is wanted.
    bool m_isDeviceMissing = false;
    bool m_isRecording = false;  // The output is a file.
    bool m_isDeviceOpen = false; // A song has sounded since libmpv was idle.
    bool m_isFarAhead = true;    // How far the sound device is, or will be, filled.
    bool m_isIdle = true;        // No song, and the sound device is closed.
};
