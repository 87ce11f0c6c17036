// SPDX-License-Identifier: GPL-3.0-or-later
// A skin may have any picture and any colours: here it is seen to that the texts on it can be read.
#pragma once

#include "controls/pictures.h"
#include "controls/skin.h"

class QPainter;
class QWidget;

/// A control that writes on the picture below it.
class OnPicture
{
public:
    virtual Colour textColour() const = 0;

protected:
    ~OnPicture() = default;
};

/// A part of a window that may hide the window's picture from its own controls.
class Covering
{
public:
    virtual bool isCovering() const = 0;

protected:
    ~Covering() = default;
};

/// Keeps the picture that lies under all of a window, or of a frame in one: pictures on which one of its texts could
/// hardly be read are passed over. Null when none is left: the owner is a plain panel then.
void keepReadable(KeptPicture &kept, const QWidget &owner);

/// Paints, on a panel without a picture, the grounds that the owner's texts are meant for where that is not the
/// panel's own colour.
void paintGrounds(QPainter &painter, const QWidget &owner);
