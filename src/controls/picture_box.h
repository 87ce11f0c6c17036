// SPDX-License-Identifier: GPL-3.0-or-later
// A picture on the skin; as a button it has a picture for the mouse over it and one for the pressed state. Its outline
// may be shaped: outside of it clicks go to what lies below.
#pragma once

#include "controls/control.h"
#include "controls/pictures.h"

#include <array>

class PictureBox : public Pressable
{
    Q_OBJECT

public:
    PictureBox(QWidget *parent, const ControlSetup &setup);

    /// Shows one picture, no button. Loaded when first painted.
    void setPicture(Picture normal);

    /// Shows what another box shows, loaded once for both: the frames of an animation wait in boxes of their own.
    void showPictureOf(PictureBox &other);

    /// Makes it a button with three pictures. Without them (missing files) a plain face with the glyph is painted.
    void setButton(Picture normal, Picture hovered, Picture pressed, const QString &glyph);

    /// The picture of a button that is on.
    void setOnPicture(Picture on);

    /// The picture at one pixel a logical one; null when there is none.
    QImage image() const;

    /// Cuts the control to a region of its own logical pixels; an empty one leaves it whole.
    void setShape(const QRegion &region);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    enum class Look { Normal, Hovered, Pressed, On };
    const QPixmap &pixmap(Look look);
    Look look() const;

    std::array<KeptPicture, 4> m_pictures; // Normal, hovered, pressed, on.
    QString m_glyph;
};
