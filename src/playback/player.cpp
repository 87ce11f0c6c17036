// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/player.h"

#include "base/names.h"
#include "platform/drives.h"
#include "platform/folders.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
const QString paused = u"Paused"_s;
const QString playing = u"Playing"_s;
constexpr int soonMs = 1;
} // namespace

Player::Player(QObject *parent, MediaEngine &engine, SongFolder &songs, PlayModes &modes)
    : QObject(parent), m_engine(engine), m_songs(songs), m_modes(modes),
      AutoPlaySong(this, u"AutoPlaySong"_s, soonMs, Timer::Kind::OneShot),
      Timer2(this, u"Timer2"_s, soonMs, Timer::Kind::OneShot), Timer3(this, u"Timer3"_s, soonMs, Timer::Kind::OneShot)
{
    connectHandlers();
}

void Player::connectHandlers()
{
    connect(&AutoPlaySong, &Timer::tick, this, &Player::AutoPlaySong_Timer);
    connect(&Timer2, &Timer::tick, this, &Player::Timer2_Timer);
    connect(&Timer3, &Timer::tick, this, &Player::Timer3_Timer);
    connect(&m_engine, &MediaEngine::endOfStream, this, &Player::MediaPlayer1_EndOfStream);
    connect(&m_engine, &MediaEngine::errorOccurred, this, &Player::MediaPlayer1_Error);
    connect(&m_engine, &MediaEngine::stateChanged, this, &Player::stateChanged);
}

void Player::open(const QString &path)
{
    ++m_openedSongs;
    m_file = fileIdentity(hostPathOnDisk(path));
    m_path = path;
    m_engine.setFileName(path);
    m_engine.play();
    setHasSong(true);
    Q_EMIT songOpened();
}

bool Player::isPlayingFile(const QString &path) const
{
    if (path.isEmpty() || !m_hasSong)
        return false;
    const bool isSamePath = hostPath(path) == hostPath(playingPath());
    return isSamePath || (m_file && m_file == fileIdentity(hostPathOnDisk(path)));
}

QString Player::playingNameIn(const QString &folder) const
{
    const bool isThere = m_hasSong && isSameFolder(FolderFromPath(m_path), folder);
    return isThere ? FileNameFromPath(spelledAsOnDisk(m_path)) : QString();
}

void Player::noteRename(const QString &path)
{
    if (!isPlayingFile(path))
        return;
    m_path = path;
    Q_EMIT songChanged();
}

void Player::play(const QString &path, const QString &title)
{
    open(path);
    Q_EMIT titleChanged(title);
}

void Player::playChosen()
{
    const QString name = m_songs.chosenName();
    if (m_songs.chosenRow() >= 0)
        play(pathIn(m_songs.folder(), name), withoutExtension(name));
}

void Player::pauseOrResume()
{
    if (PlayStatus == paused) {
        m_engine.play();
        PlayStatus = playing;
        setHasSong(true);
    } else {
        m_engine.pause();
        PlayStatus = paused;
        Q_EMIT songChanged();
    }
}

void Player::stop()
{
    stopSound();
    m_modes.clear();
    Q_EMIT stopped();
}

void Player::stopSound()
{
    m_engine.stop();
    setHasSong(false);
}

void Player::next()
{
    m_songs.choose(nextRow(m_songs.chosenRow(), m_songs.count()));
    playChosen();
}

void Player::previous()
{
    if (m_songs.chosenRow() < 0)
        return;
    m_songs.choose(previousRow(m_songs.chosenRow(), m_songs.count()));
    playChosen();
}

void Player::seek(double seconds)
{
    m_engine.setCurrentPosition(seconds);
}

void Player::setVolume(int hundredthsOfDecibel)
{
    m_engine.setVolume(hundredthsOfDecibel);
    CurrentVolume = static_cast<std::int16_t>(hundredthsOfDecibel);
    Q_EMIT volumeChanged();
}

void Player::changeVolume(int steps)
{
    setVolume(std::clamp(volume() + steps * volumeStep, quietest, loudest));
}

void Player::setHasSong(bool hasSong)
{
    m_hasSong = hasSong;
    Q_EMIT songChanged();
}

// The advance through the folder. From the last song it first goes one past the end, which the engine refuses, and only
// then back to the start; that pause in the round is wanted.
void Player::AutoPlaySong_Timer()
{
    SongIndex = advancedIndex(SongIndex, m_songs.count());
    open(pathIn(m_songs.folder(), m_songs.name(SongIndex)));
    Timer3.setEnabled(false);
    Q_EMIT advanced();
    m_songs.choose(SongIndex);
    Q_EMIT titleChanged(withoutExtension(m_songs.chosenName()));
}

// First stage of a repeat: the second one follows if the mode is still on.
void Player::Timer2_Timer()
{
    if (m_modes.isRepeating())
        Timer3.setEnabled(true);
}

// Second stage of a repeat: the song to repeat plays again under the title that stands.
void Player::Timer3_Timer()
{
    open(pathIn(m_songs.folder(), RepeatSongName));
    Q_EMIT songRepeated();
}

// The song has ended. Whatever is to follow does so after this handler has returned.
void Player::MediaPlayer1_EndOfStream()
{
    setHasSong(false);
    Q_EMIT songEnded();
    if (m_modes.isRepeating())
        setRepeatDue(true);
    if (m_modes.isAdvancing())
        setAdvanceDue(true);
}

// The engine failed: an advance or a repeat that is due still comes.
void Player::MediaPlayer1_Error()
{
    setHasSong(false);
    Q_EMIT playbackFailed();
}
