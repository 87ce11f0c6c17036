// SPDX-License-Identifier: GPL-3.0-or-later
// The two ways to choose a folder. ToolBar is the player's own browser: drives, folders and the songs of the open
// folder. Confirming makes that folder the music folder; what other windows do about it leaves as a signal.
#pragma once

#include "base/timer.h"
#include "controls/folder_lists.h"
#include "controls/label.h"
#include "controls/picture_box.h"
#include "controls/skin_window.h"

#include <array>

class frmOptions;

class ToolBar : public SkinWindow
{
    Q_OBJECT

public:
    /// mainFile1: the main window's song list, whose folder is chosen here. options says whether to be translucent.
    ToolBar(FileListBox &mainFile1, frmOptions &options);

    /// Makes the window translucent when the options say so.
    void Load();

Q_SIGNALS:
    /// The user confirmed a folder and the main window's song list shows it already.
    void folderConfirmed(const QString &folder);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void connectHandlers();
    void prepareForFirstLook();

    void Label2_Click();
    void Drive1_Change();
    void Picture1_Click();
    void Dir1_Change();
    void Timer1_Tick();
    void Label3_Click();

    FileListBox &m_mainFile1;
    frmOptions &m_options;

    Label Label2;                       // Closes the window.
    DriveListBox Drive1;                // The drives; another one opens its root in Dir1.
    Label Picture1;                     // Opens the desktop folder; the skin draws its face.
    DirListBox Dir1;                    // The open folder, those above it and those in it.
    FileListBox File1;                  // The songs of the open folder.
    PictureBox Picture2;                // A turning reel.
    std::array<PictureBox, 3> Picture3; // Its frames, never seen themselves.
    Label Label1;                       // How many songs the open folder holds.
    Label Label3;                       // Confirms the open folder.
    Timer Timer1;                       // Turns the reel while the window is seen.

    qint16 m_frame = 0; // The frame that Picture2 shows.
    bool m_looked = false;
};

/// The desktop's folder picker, opened at startFolder. The chosen folder as a program path; "" when the user chose
/// none.
QString BrowseForFolder(QWidget *parent, const QString &title, const QString &startFolder);
