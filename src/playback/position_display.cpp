// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/position_display.h"

#include "base/names.h"
#include "base/numbers.h"
#include "base/play_time.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
const QString idleTime = u"0:00/0:00"_s;
const QString leadingBlanks = u"    "_s;
constexpr int untilToldMs = 24 * 3600 * 1000;
constexpr int afterTheChangeMs = 4;
} // namespace

QString rotatedTitle(const QString &title)
{
    return title.mid(1) + title.left(1);
}

QString timeText(double positionSeconds, double durationSeconds)
{
    return FormatPlayTime(roundHalfEven(positionSeconds)) + u'/' + FormatPlayTime(roundHalfEven(durationSeconds));
}

int msUntilNextSecond(double positionSeconds)
{
    const double intoTheSecond = positionSeconds + 0.5 - std::floor(positionSeconds + 0.5);
    return static_cast<int>((1.0 - intoTheSecond) * 1000.0) + afterTheChangeMs;
}

PositionDisplay::PositionDisplay(QObject *parent, MediaEngine &engine, DisplayControls controls)
    : QObject(parent), m_engine(engine), m_controls(controls)
{
    m_controls.Text1.setText(idleTime);
    connectHandlers();
}

void PositionDisplay::connectHandlers()
{
    connect(&m_controls.HScroll1, &HScrollBar::Scroll, this, &PositionDisplay::HScroll1_Scroll);
    connect(&m_controls.HScroll1, &HScrollBar::Change, this, &PositionDisplay::HScroll1_Change);
    connect(&m_controls.HScroll1, &HScrollBar::sliderReleased, &m_controls.Timer1, &Timer::tickSoon);
    connect(&m_controls.VScroll1, &VScrollBar::Change, this, &PositionDisplay::VScroll1_Change);
    connect(&m_controls.Timer1, &Timer::tick, this, &PositionDisplay::Timer1_Timer);
    connect(&m_controls.Timer4, &Timer::tick, this, &PositionDisplay::Timer4_Timer);
    connect(&m_engine, &MediaEngine::stateChanged, &m_controls.Timer1, &Timer::tickSoon);
}

void PositionDisplay::startTime()
{
    m_controls.Timer1.setEnabled(true);
    m_controls.Timer1.tickSoon();
    tellSongName();
}

void PositionDisplay::showTitle(const QString &title)
{
    m_controls.Label7.setCaption(leadingBlanks + title);
    startTitle();
}

void PositionDisplay::startTitle()
{
    m_controls.Timer4.setEnabled(true);
}

void PositionDisplay::showIdleTime()
{
    m_controls.Timer1.setEnabled(false);
    m_controls.Text1.setText(idleTime);
    m_controls.HScroll1.setValue(m_controls.HScroll1.Min());
}

void PositionDisplay::clearTitle()
{
    m_controls.Label7.setCaption({});
    stopTitle();
}

void PositionDisplay::stopTitle()
{
    m_controls.Timer4.setEnabled(false);
}

void PositionDisplay::setSeen(bool seen)
{
    m_controls.Timer1.setResting(!seen);
    m_controls.Timer4.setResting(!seen);
}

// A song plays: its position and length are shown, and the loudness follows the engine's.
void PositionDisplay::Timer1_Timer()
{
    const double position = m_engine.currentPosition();
    const double duration = m_engine.duration();
    m_controls.Text1.setText(timeText(position, duration));
    m_controls.HScroll1.setMax(roundToInt16(duration));
    m_controls.HScroll1.setValue(roundToInt16(position));
    if (m_controls.VScroll1.Value() != m_engine.volume())
        m_controls.VScroll1.setValue(m_engine.volume());
    m_controls.Timer1.nothingNewFor(m_engine.isPlaying() ? msUntilNextSecond(position) : untilToldMs);
}

// The title moves on by a character, and the tray learns which song it is.
void PositionDisplay::Timer4_Timer()
{
    m_controls.Label7.setCaption(rotatedTitle(m_controls.Label7.Caption()));
    tellSongName();
}

// The thumb was dragged: the song goes on from there.
void PositionDisplay::HScroll1_Scroll()
{
    m_engine.setCurrentPosition(m_controls.HScroll1.Value());
}

// The thumb moved by a click on the groove, which does not seek: the next tick puts it back.
void PositionDisplay::HScroll1_Change()
{
    const bool elsewhere = m_controls.HScroll1.Value() != roundToInt16(m_engine.currentPosition());
    if (elsewhere && !m_controls.HScroll1.isSliderDown())
        m_controls.Timer1.tickSoon();
}

// The volume slider moved, by whomever: the engine is as loud as it says.
void PositionDisplay::VScroll1_Change()
{
    m_engine.setVolume(m_controls.VScroll1.Value());
    CurrentVolume = static_cast<std::int16_t>(m_controls.VScroll1.Value());
}

void PositionDisplay::tellSongName()
{
    if (m_engine.fileName() == m_toldPath)
        return;
    m_toldPath = m_engine.fileName();
    Q_EMIT songNameChanged(withoutExtension(FileNameFromPath(m_toldPath)));
}
