// SPDX-License-Identifier: GPL-3.0-or-later
// The player's own folder browser. Nothing is read from the disk before the window is first shown: a music folder may
// hold 100,000 songs, and most starts never open this window.
#include "settings/tool_bar.h"

#include "controls/fonts.h"
#include "controls/msg_box.h"
#include "controls/skin.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "settings/frm_options.h"
#include "settings/settings_store.h"
#include "settings/window_effects.h"
#include "settings/window_rules.h"
#include "skins/places.h"

#include <QDir>
#include <QFileDialog>
#include <QShowEvent>
#include <QSignalBlocker>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int frameMs = 300;
constexpr int barCaptionPixels = 12;
constexpr int closePixels = 11; // In every window.

ControlSetup frameSetup(int frame)
{
    return {u"Picture3-"_s + QString::number(frame), u"Reel frame"_s, places::ToolBar::Picture2};
}
} // namespace

ToolBar::ToolBar(FileListBox &mainFile1, frmOptions &options)
    : SkinWindow(u"ToolBar"_s, u"Music folder"_s, Picture::ToolBarSkin, places::ToolBar::window),
      m_mainFile1(mainFile1), m_options(options),
      Label2(this, {u"Label2"_s, u"Close"_s, places::ToolBar::Label2}, u"Close"_s),
      Drive1(this, {u"Drive1"_s, u"Drives"_s, places::ToolBar::Drive1}),
      Picture1(this, {u"Picture1"_s, u"Desktop folder"_s, places::ToolBar::Picture1}),
      Dir1(this, {u"Dir1"_s, u"Folders"_s, places::ToolBar::Dir1}),
      File1(this, {u"File1"_s, u"Songs of the folder"_s, places::ToolBar::File1}, u"*.mp3"_s),
      Picture2(this, {u"Picture2"_s, u"Reel"_s, places::ToolBar::Picture2}), Picture3{PictureBox{this, frameSetup(0)},
                                                                                      PictureBox{this, frameSetup(1)},
                                                                                      PictureBox{this, frameSetup(2)}},
      Label1(this, {u"Label1"_s, u"Number of songs"_s, places::ToolBar::Label1}),
      Label3(this, {u"Label3"_s, u"Choose this folder"_s, places::ToolBar::Label3}, u"Choose"_s),
      Timer1(this, u"Timer1"_s, frameMs)
{
    for (Label *button : {&Label2, &Picture1, &Label3})
        button->setButton(true);
    Label1.setColour(Colour::displayText);
    Label3.setColour(Colour::accentText);
    Picture1.setToolTip(u"Desktop"_s);
    constexpr std::array frames = {Picture::Frame0, Picture::Frame1, Picture::Frame2};
    for (std::size_t i = 0; i < frames.size(); ++i) {
        Picture3.at(i).setPicture(frames.at(i));
        Picture3.at(i).hide();
    }
    File1.setRowTip([this](int row) { return File1.List(row); }); // Names too long for the list can be read there.
    Timer1.setResting(true);
    Timer1.setEnabled(true);
    connectHandlers();
}

void ToolBar::connectHandlers()
{
    connect(this, &SkinWindow::closeRequested, this, &QWidget::hide);
    connect(this, &SkinWindow::seenChanged, &Timer1, [this](bool seen) { Timer1.setResting(!seen); });
    connect(&Label2, &Label::Click, this, &ToolBar::Label2_Click);
    connect(&Drive1, &DriveListBox::Change, this, &ToolBar::Drive1_Change);
    connect(&Picture1, &Label::Click, this, &ToolBar::Picture1_Click);
    connect(&Dir1, &DirListBox::Change, this, &ToolBar::Dir1_Change);
    connect(&Label3, &Label::Click, this, &ToolBar::Label3_Click);
    connect(&Timer1, &Timer::tick, this, &ToolBar::Timer1_Tick);
}

void ToolBar::Load()
{
    if (m_options.translucencyChosen())
        MakeTranslucent(*this, asFlag(true));
}

// Each opening begins at the music folder, read anew.
void ToolBar::showEvent(QShowEvent *event)
{
    if (!std::exchange(m_looked, true))
        prepareForFirstLook();
    if (!event->spontaneous())
        Dir1.readPath(m_mainFile1.Path().isEmpty() ? programPath(QDir::currentPath()) : m_mainFile1.Path());
    SkinWindow::showEvent(event);
    Dir1.setFocus();
}

void ToolBar::prepareForFirstLook()
{
    for (Label *label : {&Label2, &Label1, &Label3})
        label->setFont(fonts::font(fonts::Face::Arial, label == &Label2 ? closePixels : barCaptionPixels));
    Label1.setAlignment(Qt::AlignCenter);
    File1.setFocusPolicy(Qt::TabFocus);
    Picture2.showPictureOf(Picture3.at(static_cast<std::size_t>(m_frame)));
}

// Closed: the music folder stays.
void ToolBar::Label2_Click()
{
    hide();
}

// Another drive: its root opens, and Dir1_Change follows. A drive that cannot be read changes nothing.
void ToolBar::Drive1_Change()
{
    Dir1.setPath(Drive1.Drive());
}

// The desktop button: the desktop folder opens.
void ToolBar::Picture1_Click()
{
    Dir1.setPath(DesktopFolderPath());
}

// Another folder is open: its songs are listed and counted, and the drive list shows its drive.
void ToolBar::Dir1_Change()
{
    File1.setPath(Dir1.Path());
    Label1.setCaption(songCountText(File1.ListCount()));
    const QSignalBlocker quiet(Drive1);
    Drive1.setDrive(Dir1.Path());
}

// The reel turns by one frame.
void ToolBar::Timer1_Tick()
{
    m_frame = nextFrame(m_frame);
    Picture2.showPictureOf(Picture3.at(static_cast<std::size_t>(m_frame)));
}

// Confirmed: the open folder becomes the music folder, everybody learns of it, the window closes.
void ToolBar::Label3_Click()
{
    m_mainFile1.setPath(Dir1.Path());
    Q_EMIT folderConfirmed(Dir1.Path());
    writeSideSetting(Setting::Mp3Path, Dir1.Path());
    hide();
}

QString BrowseForFolder(QWidget *parent, const QString &title, const QString &startFolder)
{
    const HeldKeys kept;
    const QString start = QFile::decodeName(hostPathOnDisk(startFolder));
    return programPath(QFileDialog::getExistingDirectory(parent, title, start));
}
