// SPDX-License-Identifier: GPL-3.0-or-later
// A text on the skin. As a button it is a command of its own: click, Enter and Space run it, and its look answers the
// mouse. Its caption is its accessible name.
#pragma once

#include "controls/control.h"
#include "controls/readable.h"

#include <QPixmap>

#include <optional>

class Label : public Pressable, public OnPicture
{
    Q_OBJECT

public:
    Label(QWidget *parent, const ControlSetup &setup, const QString &caption = {});

    QString Caption() const { return m_caption; }

    /// What the label says: its caption, or, of a marquee, the text that turns.
    QString words() const;

    /// Shows another text. No click, whatever the text.
    void setCaption(const QString &caption);

    /// Makes the label a button, or a plain text again.
    void setButton(bool isButton);

    void setAlignment(Qt::Alignment alignment);
    void setColour(Colour colour);
    Colour textColour() const override { return m_colour; }

    /// A text too long for its place is cut at its end with "…" (otherwise it just runs out of sight).
    void setElided(bool elided);

    /// For a text that turns round, a character at a time, many times a second: it is laid out once and then only
    /// shifted, and the label paints the skin under it itself. Texts read from the left stand at the left and move that
    /// way, those read from the right are mirrored. Not for a button, nor below another control.
    void setMarquee();

    /// May its text be longer than its place?
    bool mayBeTooLong() const { return m_elided || m_isMarquee; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// The text of a marquee twice in a row, and how far it has moved when its first, second ... character on the
    /// screen is gone.
    struct Strip {
        QPixmap picture;
        QList<qreal> moves;
        qreal width = 0; // Of the text once.
        QRect line;      // The band of the label that the text takes ...
        QRect ink;       // ... and what a turn changes of it.
        bool isFromRight = false;
    };

    void paintLight(QPainter &painter) const;
    bool turns(const QString &caption) const;
    void setUnturned(const QString &caption);
    void layOut(qreal density);
    void paintTurn();
    void paintMarquee(QPainter &painter, const QRect &part);

    QString m_caption;
    Colour m_colour;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    QString m_unturned;           // The caption of a marquee as it was before its first turn ...
    qsizetype m_turns = 0;        // ... and how often it has turned since.
    std::optional<Strip> m_strip; // Of a marquee whose text has been painted.
    bool m_isMarquee = false;
    bool m_elided = false;
};
