// A button with a face of its own, for windows whose skin draws none.
#pragma once

#include "controls/label.h"

class Button : public Label
{
    Q_OBJECT

public:
    Button(QWidget *parent, const ControlSetup &setup, const QString &caption);

protected:
    void paintFace(QPainter &painter) const override;
};
