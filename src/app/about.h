// SPDX-License-Identifier: GPL-3.0-or-later
// What this is and where it runs: version, a message, the system, and on demand the running processes.
#pragma once

#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/skin_window.h"

class About : public SkinWindow
{
    Q_OBJECT

public:
    About();

    Label labVersion;     // Version of the program.
    Label labMessage;     // What it is for.
    Label labSystem;      // Name and version of the system; asked for when the window is first shown.
    ListBox lstProcesses; // The running processes, on show once asked for.
    Label cmdProcesses;   // Shows them, as they are now, or puts them away.
    Label cmdOk;          // Closes the window.

Q_SIGNALS:
    /// The window has been put away; the main one is wanted back.
    void done();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void connectHandlers();
    void cmdProcesses_Click();
    void cmdOk_Click();
};
