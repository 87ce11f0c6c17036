// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/fields.h"

#include "controls/fonts.h"
#include "controls/shared_paint.h"
#include "controls/skin.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace
{
constexpr int shownItems = 16;
constexpr int arrowRoom = 20;
constexpr int textIndent = 5;
constexpr int besideRing = 3;   // Between the focus ring and the text of a field.
constexpr int roomForCaret = 3; // That Qt leaves at each end of it.
} // namespace

CheckBox::CheckBox(QWidget *parent, const ControlSetup &setup, const QString &caption) : QCheckBox(caption, parent)
{
    setUpControl(*this, setup);
    setAccessibleName({}); // Its text is its name.
    connect(this, &QCheckBox::toggled, this, &CheckBox::Click);
}

void CheckBox::setState(int state)
{
    if (state == 0 || state == 1)
        setChecked(state == 1);
}

void CheckBox::setBackColour(const QColor &colour)
{
    QPalette colours = palette();
    colours.setColor(backgroundRole(), colour);
    setPalette(colours);
    setAutoFillBackground(true);
}

ComboBox::ComboBox(QWidget *parent, const ControlSetup &setup, const QStringList &items) : QComboBox(parent)
{
    setUpControl(*this, setup);
    setFont(fonts::font(fonts::Face::Arial, 12));
    setFocusPolicy(Qt::StrongFocus);
    setMaxVisibleItems(shownItems);
    addItems(items);
    setCurrentIndex(-1);
    connect(this, &QComboBox::currentIndexChanged, this, &ComboBox::tellChoice);
}

// What the keyboard chooses in the closed box is read out as an item is that gets the focus in the open one.
void ComboBox::tellChoice(int index)
{
    if (index < 0 || !hasFocus() || view()->isVisible() || !QAccessible::isActive())
        return;
    QAccessibleEvent chosen(view(), QAccessible::Focus);
    chosen.setChild(index);
    QAccessible::updateAccessibility(&chosen);
}

// The well itself is the skin's.
void ComboBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(skinColour(Colour::listText));
    const QRect text = rect().adjusted(textIndent, 0, -arrowRoom, 0);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, text.width()));
    const QPointF tip(width() - arrowRoom / 2.0, height() / 2.0 + 2);
    QColor arrow = skinColour(Colour::listText);
    arrow.setAlphaF(underMouse() ? 1 : 0.7F);
    painter.setPen(QPen(arrow, 1.5));
    painter.drawPolyline(QPolygonF{tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)});
    if (hasFocus())
        paintFocusRing(painter, rect());
}

void ComboBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

TextBox::TextBox(QWidget *parent, const ControlSetup &setup) : QLineEdit(parent)
{
    setUpControl(*this, setup);
    setFrame(false);
    takeColours();
    setTextMargins(besideRing, 0, besideRing, 0);
    connect(this, &QLineEdit::textChanged, this, &TextBox::fitText);
    connect(this, &QLineEdit::textChanged, this, &TextBox::Change);
}

void TextBox::setText(const QString &text)
{
    if (text != QLineEdit::text())
        QLineEdit::setText(text);
}

void TextBox::setDisplayOnly()
{
    m_isDisplay = true;
    setReadOnly(true);
    setTextMargins(-roomForCaret, 0, -roomForCaret, 0); // There is none.
    takeColours();
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAcceptDrops(false);
}

// What is only shown stands on the display; the well of the skin shows through every field.
void TextBox::takeColours()
{
    QPalette colours = palette();
    colours.setColor(QPalette::Base, Qt::transparent);
    if (m_isDisplay)
        colours.setColor(QPalette::Text, skinColour(textColour()));
    setPalette(colours);
}

void TextBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::StyleChange && m_isDisplay)
        takeColours();
    QLineEdit::changeEvent(event);
}

void TextBox::fitText()
{
    if (!m_isDisplay)
        return;
    QFont wanted = font();
    wanted.setStretch(QFont::AnyStretch);
    const qreal needed = QFontMetricsF(wanted).horizontalAdvance(text());
    if (needed > width())
        wanted.setStretch(static_cast<int>(QFont::Unstretched * width() / needed));
    if (wanted != font())
        setFont(wanted);
}

void TextBox::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
    Q_EMIT KeyDown(event);
    if (!event->isAccepted())
        QLineEdit::keyPressEvent(event);
}

void TextBox::mousePressEvent(QMouseEvent *event)
{
    Q_EMIT MouseDown(event->button());
    QLineEdit::mousePressEvent(event);
}

void TextBox::contextMenuEvent(QContextMenuEvent *event)
{
    event->ignore();
    if (event->reason() == QContextMenuEvent::Keyboard)
        Q_EMIT MenuKeyDown(event);
    if (!event->isAccepted())
        QLineEdit::contextMenuEvent(event);
}
