// SPDX-License-Identifier: GPL-3.0-or-later
// A borderless window that is a picture. Pressing the mouse on the picture moves the window; a missing or damaged
// picture leaves a plain panel with all controls in their places. Escape closes it as the window manager would, F6 goes
// on to the player's next window, the menu key opens the menu of its list wherever the focus is.
#pragma once

#include "controls/pictures.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QWidget>

#include <optional>

class ListBox;

class SkinWindow : public QWidget
{
    Q_OBJECT

public:
    SkinWindow(const QString &name, const QString &caption, Picture skin, QSize size);

    /// Can somebody see the window: shown and not minimised?
    bool isSeen() const { return m_seen; }

    /// Shows the window wherever it was hidden to: at its place, in front, active.
    void bringBack();

    void setVisible(bool visible) override;

    /// The window that was active last, while somebody can see it; else none.
    static SkinWindow *lastActive();

    /// The list whose menu is the window's own; none where there is no such menu.
    virtual ListBox *listWithMenu() { return nullptr; }

    /// Makes the picture of the skin ready before it is painted.
    void renewPicture();

    /// The skin's pixel at a place in logical pixels; the plain panel's colour without a skin.
    QColor skinColourAt(const QPoint &place);

    /// Paints a part of the skin, given in the coordinates of a control at offset in the window. Nothing before the
    /// window itself has been painted.
    void paintSkin(QPainter &painter, const QRect &part, const QPoint &offset) const;

    /// Moves the window by a press of the mouse on its skin (or on what lets the press through to it).
    void DragBySkin(const QMouseEvent &event);

Q_SIGNALS:
    void seenChanged(bool seen);

    /// The first picture of the window is on the screen.
    void firstPainted();

    /// The user closes the window by the window manager's means; the window stays as it is until somebody acts on it.
    void closeRequested();

    /// A key of the keyboard's own transport (Qt::Key_MediaPlay ...) that no desktop has taken.
    void mediaKeyPressed(int key);

protected:
    /// Another skin is worn, or the screen has another density: for what is not simply painted anew.
    virtual void skinChanged() {}

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    struct Grip {
        QPoint held;          // Where the window is dragged by, from its top left corner.
        QPoint start;         // Where that corner was then.
        QElapsedTimer asking; // Since the window was first asked to move.
    };

    void noteSeen();
    void keepOpacity();
    void noteDensity();
    void followDensity();
    void goToNextWindow() const;

    KeptPicture m_background;      // Made at the first paint at the latest.
    QPointer<QWidget> m_lastFocus; // Where the focus was when the window was hidden.
    std::optional<Grip> m_grip;
    qreal m_density; // Of its screen.
    bool m_seen = false;
    bool m_painted = false;
    bool m_comesUp = false; // Shown and not painted since.
};

/// Moves a window to the middle of its screen, slightly above.
void CenterWindow(QWidget &window);

/// Lets queued window events run 100 times in a row: for the middle of a long loop.
void PumpEvents();
