// SPDX-License-Identifier: GPL-3.0-or-later
// What happens when a song ends, as the transport asks for it. The modes' home is the song menu's check marks.
#pragma once

class PlayModes
{
public:
    /// Does the song to repeat play again?
    virtual bool isRepeating() const = 0;

    /// Does the folder's next song play?
    virtual bool isAdvancing() const = 0;

    /// Switches every mode off.
    virtual void clear() = 0;

protected:
    ~PlayModes() = default;
};
