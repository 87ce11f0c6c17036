// What every control has.
#include "controls/control.h"

#include <QWidget>

void setUpControl(QWidget &control, const ControlSetup &setup)
{
    control.setObjectName(setup.name);
    control.setAccessibleDescription(setup.description);
    control.setGeometry(setup.place);
}
