// A text on the skin. As a button it is a command of its own: click, Enter and Space run it, and its look answers the
// mouse. Its caption is its accessible name.
#pragma once

#include "controls/control.h"

#include <QColor>
#include <QPixmap>
#include <QWidget>

#include <optional>

class Label : public QWidget
{
    Q_OBJECT

public:
    Label(QWidget *parent, const ControlSetup &setup, const QString &caption = {});

    QString Caption() const { return m_caption; }

    /// Shows another text. No click, whatever the text.
    void setCaption(const QString &caption);

    /// Makes the label a button, or a plain text again.
    void setButton(bool isButton);
    bool isButton() const { return m_isButton; }

    void setAlignment(Qt::Alignment alignment);
    void setColour(const QColor &colour);

    /// A text too long for its place is cut at its end with "…" (otherwise it just runs out of sight).
    void setElided(bool elided);

    /// For a text that turns round, a character at a time, many times a second: it is laid out once and then only
    /// shifted, and the label paints the skin under it itself. At the left, not for a button.
    void setMarquee();

    /// Runs the command as a click does, when the control is enabled.
    void press();

Q_SIGNALS:
    void Click();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;

    /// What lies under the text: on a skin nothing but the light of the mouse on a button.
    virtual void paintFace(QPainter &painter) const;

    bool isPressed() const { return m_pressed; }
    bool isHovered() const { return m_hovered; }

private:
    /// The text of a marquee twice in a row, and where each of its characters begins there.
    struct Strip {
        QPixmap picture;
        QList<qreal> starts;
        qsizetype turn = 0; // The character that is the first one just now.
    };

    bool turns(const QString &caption) const;
    QRect lineRect() const;
    void layOut();
    void paintMarquee(QPainter &painter, const QRect &part);

    QString m_caption;
    QColor m_colour;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    std::optional<Strip> m_strip; // Of a marquee whose text has been painted.
    bool m_isMarquee = false;
    bool m_isButton = false;
    bool m_elided = false;
    bool m_pressed = false;
    bool m_hovered = false;
};
