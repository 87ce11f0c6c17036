// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/format_mp3.h"

#include "base/last_error.h"
#include "base/names.h"
#include "base/window_place.h"
#include "controls/fonts.h"
#include "controls/msg_box.h"
#include "controls/skin_window.h"
#include "filetools/shell_windows.h"
#include "filetools/song_list.h"
#include "filetools/tidy_names.h"
#include "mp3info/mp3_info.h"
#include "platform/folders.h"
#include "playback/player.h"
#include "skins/places.h"
#include "tagedit/tag_edit.h"

#include <QKeyEvent>
#include <QScreen>

using namespace Qt::StringLiterals;
namespace place = places::FormatMp3;

namespace
{
const QString filePattern = u"*.mp3"_s;
const QString errorSource = u"FormatMp3"_s;
constexpr int noProcedure = 5;
constexpr int fileExistsAlready = 58;
constexpr int pumpsAfterRefusal = 300;

// The row of a name; -1 when the list has none.
int rowOf(const FileListBox &files, const QString &name)
{
    return name.isEmpty() ? -1 : static_cast<int>(files.items().indexOf(name));
}

void showNewError(int number, const QString &description)
{
    recordError({number, errorSource, description});
    MsgBox::showError(lastError());
}
} // namespace

FormatMp3::FormatMp3(Player &player, SongList &songs, Mp3Info &info, TagEdit &tagEdit)
    : SkinWindow(u"FormatMp3"_s, u"Mp3 Name Tools"_s, Picture::FormatMp3Skin, place::window),
      Dir1(this, {u"Dir1"_s, u"Folders"_s, place::Dir1}),
      File1(this, {u"File1"_s, u"Mp3 files"_s, place::File1}, filePattern),
      Text1(this, {u"Text1"_s, u"New name"_s, place::Text1}),
      Label1(this, {u"Label1"_s, u"Rename"_s, place::Label1}, u"Rename"_s),
      Label2(this, {u"Label2"_s, u"Close"_s, place::Label2}, u"Close"_s), m_player(player), m_songs(songs),
      m_info(info), m_tagEdit(tagEdit)
{
    for (Label *button : {&Label1, &Label2}) {
        button->setButton(true);
        button->setFont(fonts::font(fonts::Face::SmallFonts, 11));
    }
    Label1.setColour(Colour::accentText);
    Text1.setFont(fonts::font(fonts::Face::Arial, 13));
    File1.setRowTip([this](int row) { return File1.List(row) + u" is "_s + FileAttributeText(File1.filePath(row)); });
    connectHandlers();
    noteChoice();
}

void FormatMp3::connectHandlers()
{
    connect(&Dir1, &DirListBox::Change, this, &FormatMp3::Dir1_Change);
    connect(&File1, &ListBox::Click, this, &FormatMp3::File1_Click);
    connect(&File1, &ListBox::DblClick, this, &FormatMp3::File1_DblClick);
    connect(&File1, &ListBox::KeyDown, this, &FormatMp3::File1_KeyDown);
    connect(&File1, &ListBox::MouseDown, this, &FormatMp3::File1_MouseDown);
    connect(&File1, &ListBox::MouseMove, this, &FormatMp3::File1_MouseMove);
    connect(&Text1, &TextBox::KeyDown, this, &FormatMp3::Text1_KeyDown);
    connect(&Label1, &Label::Click, this, &FormatMp3::Label1_Click);
    connect(&Label2, &Label::Click, this, &FormatMp3::Label2_Click);
    connect(this, &SkinWindow::closeRequested, this, &FormatMp3::Label2_Click);
}

void FormatMp3::openOnSongs()
{
    const QString pointed = m_songs.pointedSong(); // A choice changes it.
    const QString chosen = m_songs.chosenName();
    placeForTwo();
    bringBack();
    choose({});
    Dir1.readPath(m_songs.folder());
    choose(chosen.isEmpty() ? pointed : chosen);
    if (File1.ListIndex() < 0)
        Text1.setText(pointed);
    File1.setFocus();
}

void FormatMp3::useTag()
{
    if (File1.ListIndex() < 0)
        return;
    m_info.setFileName(File1.filePath(File1.ListIndex()));
    QString name = m_info.Artist() + u" - "_s + m_info.Title() + u".mp3"_s;
    Text1.setText(name.remove(QChar(u'\0'))); // Some tags pad with NULs, which no name can hold.
}

void FormatMp3::LoadMp3Info(QWidget &target, ListBox &List1)
{
    m_info.setFileName(File1.filePath(File1.ListIndex()));
    target.show();
    List1.setItems({u"Artest = "_s + m_info.Artist(), u"Title = "_s + m_info.Title(), u"Album = "_s + m_info.Album(),
                    u"Hz = "_s + QString::number(m_info.Hz()), u"Year = "_s + m_info.Year(),
                    u"Seconds = "_s + QString::number(m_info.Seconds()),
                    u"Size = "_s + Mp3Info::FormatFileSize(m_info.FileBytes()), u"Comments = "_s + m_info.Comments()});
}

// A folder is opened: its files are shown. In one that is read again the file stays chosen.
void FormatMp3::Dir1_Change()
{
    if (File1.Path() == Dir1.Path()) {
        refresh();
        return;
    }
    File1.setPath(Dir1.Path());
    noteChoice();
}

// A file is chosen: the tag editor shows it, and a name is proposed.
void FormatMp3::File1_Click()
{
    noteChoice();
    showInTagEdit(File1.filePath(File1.ListIndex()));
    const NameProposal proposal = proposeName(chosenName());
    if (proposal.songName)
        m_songs.setPointedSong(*proposal.songName);
    Text1.setText(proposal.name);
}

// A file is double-clicked: it plays, under its whole name.
void FormatMp3::File1_DblClick()
{
    if (File1.ListIndex() >= 0)
        m_player.play(pathIn(File1.Path(), chosenName()), chosenName());
}

// Enter plays, Escape puts the proposal back, Space swaps the name's sides, Delete deletes, the numeric pad's plus and
// minus change the volume.
void FormatMp3::File1_KeyDown(QKeyEvent *event)
{
    const int key = event->key();
    const bool onPad = event->modifiers() & Qt::KeypadModifier;
    event->accept();
    if (isEnter(*event))
        File1_DblClick();
    else if (key == Qt::Key_Escape)
        putProposalBack();
    else if (key == Qt::Key_Space)
        swapSides();
    else if (key == Qt::Key_Delete && !isRepeat(*event))
        deleteChosen();
    else if (onPad && (key == Qt::Key_Plus || key == Qt::Key_Minus))
        m_player.changeVolume(key == Qt::Key_Plus ? 1 : -1);
    else
        event->ignore();
}

// A button went down: the file there is the pointed one, also when the keyboard asks for the menu.
void FormatMp3::File1_MouseDown()
{
    if (!MoveMenuOpen)
        m_pointedFile = File1.List(File1.menuRow());
}

// The mouse is over a file: it is the pointed one.
void FormatMp3::File1_MouseMove(int row)
{
    if (!MoveMenuOpen)
        m_pointedFile = File1.List(row);
}

// Enter in the new name: the same as Rename. Escape puts the proposal back.
void FormatMp3::Text1_KeyDown(QKeyEvent *event)
{
    event->accept();
    if (isEnter(*event))
        Label1.press();
    else if (event->key() == Qt::Key_Escape)
        putProposalBack();
    else
        event->ignore();
}

// Rename: the chosen file gets the new name.
void FormatMp3::Label1_Click()
{
    const QString oldPath = pathIn(File1.Path(), chosenName());
    const QString newPath = pathIn(File1.Path(), Text1.Text());
    if (oldPath == newPath)
        refuseRename();
    else
        renameTo(oldPath, newPath);
}

// Close: the main window's lists show what was done here.
void FormatMp3::Label2_Click()
{
    m_songs.refresh();
    m_tagEdit.hide();
    hide();
    Q_EMIT done();
}

// In the middle of the screen together with the tag editor that will stand on the right.
void FormatMp3::placeForTwo()
{
    const QRect whole = screen()->geometry();
    const QSize pair(width() + TagEdit::gapBeside + m_tagEdit.width(), std::max(height(), m_tagEdit.height()));
    const QPoint corner = centredPlace(whole.size(), pair).toPoint();
    move(whole.topLeft() + QPoint(std::max(corner.x(), 0), std::max(corner.y(), 0)));
}

void FormatMp3::choose(const QString &name)
{
    File1.setListIndex(rowOf(File1, name));
    noteChoice();
}

void FormatMp3::refresh()
{
    const int row = File1.ListIndex();
    File1.Refresh();
    chooseInPlaceOf(row);
}

// The file of a row may be gone: then the one that moved up, or the one before when it was the last.
void FormatMp3::chooseInPlaceOf(int row)
{
    if (File1.ListIndex() < 0)
        File1.setListIndex(std::min(row, File1.ListCount() - 1));
    noteChoice();
}

// Without a chosen file there is nothing to rename or to edit, and nothing stays of the one before.
void FormatMp3::noteChoice()
{
    const bool isChosen = File1.ListIndex() >= 0;
    Label1.setEnabled(isChosen);
    if (isChosen)
        return;
    Text1.setText({});
    m_tagEdit.putAway();
}

void FormatMp3::showInTagEdit(const QString &path)
{
    m_tagEdit.reload(path);
    if (!m_tagEdit.isVisible())
        m_tagEdit.showBeside(*this);
}

void FormatMp3::deleteChosen()
{
    if (File1.ListIndex() < 0)
        return;
    ShellWindows prompts;
    ShellDeleteFile(pathIn(File1.Path(), chosenName()), prompts);
    refresh();
}

void FormatMp3::putProposalBack()
{
    Text1.setText(proposeName(chosenName()).name);
}

void FormatMp3::swapSides()
{
    if (const auto swapped = withSidesSwapped(Text1.Text())) {
        Text1.setText(*swapped);
        return;
    }
    showNewError(noProcedure, u"The name holds no \"-\" whose sides could change places."_s);
}

// The file keeps being the chosen one under its new name. A rename that was refused leaves the new name to be edited.
void FormatMp3::renameTo(const QString &oldPath, const QString &newPath)
{
    ShellWindows prompts;
    const ShellOutcome outcome = ShellRenameFile(oldPath, newPath, prompts);
    const int row = File1.ListIndex();
    File1.Refresh();
    if (outcome == ShellOutcome::Done) {
        m_player.noteRename(newPath);
        File1.setListIndex(rowOf(File1, FileNameFromPath(newPath)));
    }
    chooseInPlaceOf(row);
}

// The name is the old one: an error box. What is typed while the events behind it run does not count.
void FormatMp3::refuseRename()
{
    const QString name = Text1.Text();
    showNewError(fileExistsAlready, u"File already exists"_s);
    for (int pump = 0; pump < pumpsAfterRefusal; ++pump)
        PumpEvents();
    Text1.setText(name);
}
