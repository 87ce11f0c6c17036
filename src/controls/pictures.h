// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the skins: an identifier each, a table of files, the sharper form on a dense screen.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QStringList>

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

/// A longer file is no picture of a skin.
constexpr qint64 longestPicture = qint64(1) << 23;

/// The names that the files of the pictures have in a skin's folder, in both densities.
QStringList pictureFileNames();

/// A picture of just so many pixels a logical one, of the first folder of the skin that has it, made from the sharper
/// form where the screen is dense. What is damaged or has another size than it should is complained of and passed over.
/// Null when no folder has it: the caller shows plain controls then.
QPixmap picture(Picture which, qreal devicePixelRatio = 1);

/// The picture at one pixel a logical one, to compute with. Null as above.
QImage pictureImage(Picture which);

/// Looks at every picture of the skin, at both densities, so that what is wrong with any is complained of.
void checkPictures();

/// Passes over the picture that is shown now, for as long as this skin is worn: the next folder's takes its place.
void refusePicture(Picture which, const QString &why);

/// A picture kept in what it is painted from: made when first asked for, and anew for a screen of another density or
/// another skin.
class KeptPicture
{
public:
    explicit KeptPicture(Picture which = Picture::Count) : m_which(which) {}

    Picture which() const { return m_which; }

    /// Makes it where that is due. True when it is another one than before.
    bool keep(qreal devicePixelRatio);

    /// Makes it anew, whatever it was.
    void make(qreal devicePixelRatio);

    /// Has it been made, be it that there is none?
    bool isMade() const { return m_density != 0; }

    /// As it was made last; null where there is none.
    const QPixmap &pixmap() const { return m_pixmap; }

private:
    Picture m_which;
    QPixmap m_pixmap;
    qreal m_density = 0; // 0: never made.
    int m_skin = 0;
};
