// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of a window that take no input.
#pragma once

#include "controls/control.h"
#include "controls/pictures.h"
#include "controls/readable.h"

#include <QWidget>

/// A part of a window with a caption of its own; the controls that belong together are its children. It comes and goes
/// with them. Pressing the mouse on it drags the window as pressing the skin does.
class Frame : public QWidget, public Covering
{
    Q_OBJECT

public:
    Frame(QWidget *parent, const ControlSetup &setup, const QString &caption);

    /// Paints a picture under the children, over what the skin shows there.
    void setPicture(Picture picture);

    /// Makes the picture ready before it is painted.
    void renewPicture();

    /// Empties the plate that the skin shows there, but for its rim; also what stands in for a missing picture.
    void setPlate();

    bool isCovering() const override { return m_isCovering; }

    /// Where a control with a place on the window lies in here.
    ControlSetup inside(ControlSetup setup) const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_caption;
    KeptPicture m_background; // Loaded at the first paint.
    bool m_isCovering = false;
};

/// A bar that fills, deep red from its left edge on.
class ProgressBar : public QWidget
{
    Q_OBJECT

public:
    ProgressBar(QWidget *parent, const ControlSetup &setup);
    void setFraction(double fraction);
    double fraction() const { return m_fraction; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double m_fraction = 0;
};
