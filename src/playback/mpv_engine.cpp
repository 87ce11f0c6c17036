// SPDX-License-Identifier: GPL-3.0-or-later
// ask() notes what is wanted and starts a zero timer, carryOutRequest() hands it to libmpv. Every answer carries the
// serial of its question. Events count between the start and the end of the song with the current entry.
#include "playback/mpv_engine.h"

#include "base/names.h"
#include "platform/drives.h"
#include "playback/play_fault.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{
constexpr int silentVolume = -10000;
constexpr int longestDeferralMs = 2000;
constexpr int clockTrustMs = 4000;   // So long the position is shown unchecked.
constexpr int seekPatienceMs = 1000; // So long a position far from the seek's target is taken for an old one.
constexpr int deviceTrialMs = 3000;

PlayFault faultOf(MpvFailure failure)
{
    switch (failure) {
    case MpvFailure::UnknownFormat:
        return PlayFault::NotSound;
    case MpvFailure::NothingToPlay:
        return PlayFault::NoSoundInside;
    case MpvFailure::Device:
        return PlayFault::DeviceRefused;
    default:
        return PlayFault::Unknown;
    }
}
} // namespace

MpvEngine::MpvEngine(QObject *parent) : MediaEngine(parent)
{
    m_requestTimer.setSingleShot(true);
    connect(&m_requestTimer, &QTimer::timeout, this, &MpvEngine::carryOutRequest);
    connect(&m_deviceTimer, &QTimer::timeout, this, &MpvEngine::lookForDevice);
}

MpvEngine::~MpvEngine() = default;

void MpvEngine::deferUntilShown()
{
    m_isDeferred = true;
    m_requestTimer.stop();
    QTimer::singleShot(longestDeferralMs, this, &MpvEngine::release);
}

void MpvEngine::release()
{
    m_isDeferred = false;
    if (m_request != Request::None)
        m_requestTimer.start(0);
}

void MpvEngine::setFileName(const QString &path)
{
    m_fileName = path;
    if (path.isEmpty())
        stop();
    else
        ask(Request::Open);
}

void MpvEngine::play()
{
    if (m_request != Request::None)
        m_request = Request::OpenAndPlay;
    else if (m_song != Song::None)
        setPaused(false);
    else if (!m_fileName.isEmpty())
        ask(Request::OpenAndPlay);
}

void MpvEngine::pause()
{
    if (m_request != Request::None)
        m_request = Request::Open;
    else if (m_song != Song::None)
        setPaused(true);
}

void MpvEngine::stop()
{
    m_requestTimer.stop();
    m_request = Request::None;
    forgetSong();
    Q_EMIT stateChanged();
}

double MpvEngine::currentPosition() const
{
    refreshClock();
    const double position = m_seekTarget.value_or(m_clock.seconds());
    return m_duration > 0 ? std::min(position, m_duration) : position;
}

void MpvEngine::setCurrentPosition(double seconds)
{
    if (m_request == Request::None && m_song == Song::None)
        return;
    m_seekTarget = std::max(seconds, 0.0);
    if (isOpen())
        seek();
    Q_EMIT stateChanged();
}

void MpvEngine::setVolume(int hundredthsOfDecibel)
{
    const int wanted = std::clamp(hundredthsOfDecibel, silentVolume, 0);
    if (std::exchange(m_volume, wanted) != wanted && m_core && m_core->setVolume(m_volume) && isOpen())
        seekTo(currentPosition()); // What lay ready in the device that was closed is still to be heard.
}

bool MpvEngine::isPlaying() const
{
    return m_request == Request::None && m_song == Song::Sounding && !m_isPaused;
}

bool MpvEngine::isPaused() const
{
    return m_request == Request::None ? m_song != Song::None && m_isPaused : m_request == Request::Open;
}

// The song that sounds goes on until the current handler has returned, but is not listened to any more.
void MpvEngine::ask(Request request)
{
    m_request = request;
    forgetNews();
    if (!m_isDeferred)
        m_requestTimer.start(0);
    Q_EMIT stateChanged();
}

void MpvEngine::carryOutRequest()
{
    const bool isPaused = std::exchange(m_request, Request::None) == Request::Open;
    if (const std::optional<PlayFault> fault = faultBeforePlaying(m_fileName))
        return fail(*fault);
    if (!startCore())
        return fail(PlayFault::LibraryMissing);
    m_isPaused = isPaused;
    m_song = Song::Asked;
    m_songSerial = ++m_serial;
    m_core->load(hostPathOnDisk(m_fileName), withoutExtension(FileNameFromPath(m_fileName)).toUtf8(), m_songSerial);
}

bool MpvEngine::startCore()
{
    if (m_core)
        return true;
    std::unique_ptr<MpvCore> core(new MpvCore(*this)); // Only here the listener is known.
    if (!core->start(m_volume))
        return false;
    m_core = std::move(core);
    return true;
}

void MpvEngine::forgetSong()
{
    if (std::exchange(m_song, Song::None) != Song::None)
        m_core->stop();
    forgetNews();
}

// From now on nothing that libmpv still has to say about a song counts.
void MpvEngine::forgetNews()
{
    m_entry = 0;
    m_songSerial = ++m_serial;
    m_duration = 0;
    m_seekTarget.reset();
    m_sinceSeek.invalidate();
    setClock(0);
}

// Pauses or goes on; the position stays what it is.
void MpvEngine::setPaused(bool on)
{
    if (std::exchange(m_isPaused, on) == on)
        return;
    ++m_serial;
    setClock(m_clock.seconds());
    m_core->setPause(on);
    m_core->askPosition(m_serial);
    Q_EMIT stateChanged();
}

// Sets the position; it moves on by itself while the song sounds.
void MpvEngine::setClock(double seconds)
{
    m_clock.setRunning(isPlaying());
    m_clock.set(seconds);
    watchDevice();
}

// Reading the position corrects it from time to time; while nobody reads it, nothing wakes up.
void MpvEngine::refreshClock() const
{
    if (!isPlaying() || m_sinceAsked.elapsed() < clockTrustMs)
        return;
    m_sinceAsked.start();
    m_core->askPosition(m_serial);
    m_core->askDuration(m_songSerial);
}

// Goes to the place that is shown already.
void MpvEngine::seek()
{
    seekTo(seekPlace(*m_seekTarget, m_duration));
}

void MpvEngine::seekTo(double seconds)
{
    ++m_serial;
    m_seekTarget = seconds;
    m_sinceSeek.start();
    m_core->seek(seconds);
}

bool MpvEngine::isDeviceMissing() const
{
    return m_song != Song::None && m_core->isDeviceMissing();
}

void MpvEngine::deviceChanged()
{
    watchDevice();
    Q_EMIT stateChanged();
}

void MpvEngine::watchDevice()
{
    const bool isWanted = isPlaying() && isDeviceMissing();
    if (!isWanted)
        m_deviceTimer.stop();
    else if (!m_deviceTimer.isActive())
        m_deviceTimer.start(deviceTrialMs);
}

// The song is heard again as soon as it can be, not only the next one.
void MpvEngine::lookForDevice()
{
    m_core->reopenDevice();
    seekTo(currentPosition());
}

void MpvEngine::fail(PlayFault fault, const QString &detail)
{
    forgetSong();
    recordError(playError(fault, m_fileName, detail));
    Q_EMIT stateChanged();
    Q_EMIT errorOccurred();
}

void MpvEngine::songAccepted(quint64 serial, qint64 entry)
{
    if (serial != m_songSerial)
        return;
    m_entry = entry;
    if (entry == 0)
        fail(PlayFault::Unknown);
}

bool MpvEngine::isCurrent(qint64 entry) const
{
    return m_entry != 0 && entry == m_entry;
}

void MpvEngine::songStarted(qint64 entry)
{
    if (!isCurrent(entry))
        return;
    m_song = Song::Opening;
    m_core->setPause(m_isPaused); // The pause of the song before would outlive it.
}

void MpvEngine::songOpened()
{
    if (m_song == Song::Opening)
        m_core->askDuration(m_songSerial);
}

// The song began to sound, or sounds again after a seek.
void MpvEngine::soundStarted()
{
    if (m_song < Song::Opening || m_entry == 0)
        return;
    m_song = Song::Sounding;
    setClock(m_seekTarget.value_or(m_clock.seconds()));
    m_sinceAsked.start();
    m_core->askPosition(m_serial);
    Q_EMIT stateChanged();
}

void MpvEngine::songEnded(qint64 entry)
{
    if (!isCurrent(entry))
        return;
    m_song = Song::None; // There is nothing to stop.
    forgetSong();
    Q_EMIT stateChanged();
    Q_EMIT endOfStream(0);
}

void MpvEngine::songFailed(qint64 entry, MpvFailure failure, const QString &reason)
{
    if (!isCurrent(entry))
        return;
    m_song = Song::None;
    const PlayFault fault =
        failure == MpvFailure::Loading ? faultBeforePlaying(m_fileName).value_or(PlayFault::Unknown) : faultOf(failure);
    fail(fault, fault == PlayFault::Unknown ? reason : QString());
}

void MpvEngine::positionAnswered(quint64 serial, double seconds)
{
    if (serial != m_serial)
        return;
    const double shown = currentPosition();
    const bool isSeekFresh = m_seekTarget && (!m_sinceSeek.isValid() || m_sinceSeek.elapsed() < seekPatienceMs);
    if (isSeekFresh && std::abs(seconds - shown) > 1)
        return; // The place before the seek.
    // A paused song has not sounded since its seek, and libmpv counts what lies ready as played.
    const bool isAtTarget = m_seekTarget && m_isPaused;
    m_seekTarget.reset();
    setClock(isAtTarget ? shown : std::max(seconds, 0.0));
    if (std::abs(m_clock.seconds() - shown) > visibleJumpSeconds)
        Q_EMIT stateChanged();
}

void MpvEngine::durationAnswered(quint64 serial, double seconds)
{
    if (serial != m_songSerial)
        return;
    const bool isNew = std::exchange(m_duration, seconds) != seconds;
    m_song = std::max(m_song, Song::Open);
    if (m_seekTarget && !m_sinceSeek.isValid())
        seek(); // It was asked for while the song opened.
    if (isNew)
        Q_EMIT stateChanged();
}
