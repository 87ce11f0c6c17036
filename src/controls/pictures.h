// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the skins: an identifier each, a table of files, the sharper form on a dense screen.
#pragma once

#include <QImage>
#include <QPixmap>

#include <optional>

enum class Picture {
    SplashSkin,
    Mp3FrmSkin,
    PlaylistSkin,
    SongSearchSkin,
    TagEditSkin,
    FormatMp3Skin,
    ToolBarSkin,
    OptionsSkin,
    AboutSkin,
    NoTagFrame,
    Play,
    PlayHover,
    PlayPressed,
    Pause,
    PauseHover,
    PausePressed,
    PauseOn,
    Stop,
    StopHover,
    StopPressed,
    Previous,
    PreviousHover,
    PreviousPressed,
    Next,
    NextHover,
    NextPressed,
    Frame0,
    Frame1,
    Frame2,
    Icon16,
    Icon22,
    Icon32,
    Icon48,
    Count
};

/// A picture of just so many pixels a logical one, made from the sharper form where the screen is dense. Null when the
/// file is missing or damaged: the caller shows plain controls then.
QPixmap picture(Picture which, qreal devicePixelRatio = 1);

/// Keeps a picture in what it is painted from: made when first asked for, and anew for a screen of another density.
void keepPicture(std::optional<QPixmap> &kept, Picture which, qreal devicePixelRatio);

/// The picture at one pixel a logical one, to compute with. Null as above.
QImage pictureImage(Picture which);
