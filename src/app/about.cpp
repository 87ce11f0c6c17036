// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/about.h"

#include "app/version.h"
#include "controls/fonts.h"
#include "controls/skin.h"
#include "platform/processes.h"
#include "skins/places.h"

using namespace Qt::StringLiterals;

About::About()
    : SkinWindow(u"About"_s, u"About"_s, Picture::AboutSkin, places::About::window),
      labVersion(this, {u"labVersion"_s, u"Version"_s, places::About::labVersion},
                 programName() + u", Version "_s + versionText()),
      labMessage(this, {u"labMessage"_s, u"Message"_s, places::About::labMessage},
                 u"Free software under the GNU GPL, version 3 or later."_s),
      labSystem(this, {u"labSystem"_s, u"System"_s, places::About::labSystem}),
      lstProcesses(this, {u"lstProcesses"_s, u"Processes"_s, places::About::lstProcesses}),
      cmdProcesses(this, {u"cmdProcesses"_s, u"Show the running processes"_s, places::About::cmdProcesses},
                   u"Processes"_s),
      cmdOk(this, {u"cmdOk"_s, u"Close"_s, places::About::cmdOk}, u"OK"_s)
{
    for (Label *label : {&labVersion, &labMessage, &labSystem, &cmdProcesses, &cmdOk})
        label->setFont(fonts::font(fonts::Face::ComicSansMs, 13));
    labSystem.setColour(Colour::captionDim);
    labSystem.setElided(true);
    cmdProcesses.setButton(true);
    cmdOk.setButton(true);
    lstProcesses.hide();
    connectHandlers();
}

void About::connectHandlers()
{
    connect(&cmdProcesses, &Label::Click, this, &About::cmdProcesses_Click);
    connect(&cmdOk, &Label::Click, this, &About::cmdOk_Click);
    connect(this, &SkinWindow::closeRequested, this, &About::cmdOk_Click);
}

void About::showEvent(QShowEvent *event)
{
    SkinWindow::showEvent(event);
    labSystem.setCaption(systemVersionText());
    cmdOk.setFocus();
}

// The list of processes comes into view, read anew, or goes.
void About::cmdProcesses_Click()
{
    const bool show = lstProcesses.isHidden();
    if (show)
        lstProcesses.setItems(runningProcesses());
    lstProcesses.setVisible(show);
}

// The window goes, the main one comes back.
void About::cmdOk_Click()
{
    lstProcesses.hide();
    hide();
    Q_EMIT done();
}
