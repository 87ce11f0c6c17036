// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/song_display.h"

#include "app/display_texts.h"
#include "base/numbers.h"

using namespace Qt::StringLiterals;

namespace
{
const QString idleTime = u"0:00/0:00"_s;
const QString leadingBlanks = u"    "_s;
constexpr int untilTriggeredMs = 24 * 3600 * 1000;
} // namespace

SongDisplay::SongDisplay(const Player &player, DisplayControls controls) : m_player(player), m_controls(controls)
{
    m_controls.Text1.setText(idleTime);
    setSeen(false);
}

void SongDisplay::startTime()
{
    m_controls.Timer1.setEnabled(true);
    m_controls.Timer1.trigger();
}

void SongDisplay::showTitle(const QString &title)
{
    m_controls.Label7.setCaption(leadingBlanks + title);
    startTitle();
}

void SongDisplay::startTitle()
{
    m_controls.Timer4.setEnabled(true);
}

void SongDisplay::showTime()
{
    const double position = m_player.positionSeconds();
    const double length = m_player.lengthSeconds();
    const QString time = timeText(position, length);
    m_controls.Text1.setText(m_player.isDeviceMissing() ? u"No sound  "_s + time : time);
    m_controls.HScroll1.setMax(roundToInt16(length));
    m_controls.HScroll1.setValue(roundToInt16(position));
    if (m_controls.VScroll1.Value() != m_player.volume())
        m_controls.VScroll1.setValue(m_player.volume());
    m_controls.Timer1.sleepFor(m_player.isMoving() ? msUntilNextSecond(position) : untilTriggeredMs);
}

void SongDisplay::restoreSlider()
{
    const bool isElsewhere = m_controls.HScroll1.Value() != roundToInt16(m_player.positionSeconds());
    if (isElsewhere && !m_controls.HScroll1.isSliderDown())
        m_controls.Timer1.trigger();
}

void SongDisplay::turnTitle()
{
    m_controls.Label7.setCaption(rotatedTitle(m_controls.Label7.Caption()));
}

void SongDisplay::showIdleTime()
{
    m_controls.Timer1.setEnabled(false);
    m_controls.Text1.setText(idleTime);
    m_controls.HScroll1.setValue(m_controls.HScroll1.Min());
}

void SongDisplay::clearTitle()
{
    m_controls.Label7.setCaption({});
    stopTitle();
}

void SongDisplay::stopTitle()
{
    m_controls.Timer4.setEnabled(false);
}

void SongDisplay::setSeen(bool seen)
{
    m_controls.Timer1.setResting(!seen);
    m_controls.Timer4.setResting(!seen);
}
