// SPDX-License-Identifier: GPL-3.0-or-later
// The name formatter: browse a folder, choose a file, and its name is proposed in a tidy form that can be edited; then
// the file gets it. How names are tidied is in tidy_names; the menus over the files are opened by Menus.
#pragma once

#include "controls/fields.h"
#include "controls/folder_lists.h"
#include "controls/label.h"
#include "controls/skin_window.h"

class Mp3Info;
class Player;
class SongList;
class TagEdit;

class FormatMp3 : public SkinWindow
{
    Q_OBJECT

public:
    /// Plays through player, opens on the music folder of songs, reads tags with info, and shows each file in tagEdit.
    FormatMp3(Player &player, SongList &songs, Mp3Info &info, TagEdit &tagEdit);

    /// Opens on the music folder, with the song that is chosen there.
    void openOnSongs();

    /// Reads the folder again. In the place of a chosen file that is gone its neighbour is chosen.
    void refresh();

    /// Artist and title of the chosen file's tag become the proposal. Without a chosen file nothing happens.
    void useTag();

    /// Shows a window with the data of the chosen file in its list.
    void LoadMp3Info(QWidget &target, ListBox &List1);

    ListBox *listWithMenu() override { return &File1; }

    /// The name under the mouse, frozen while MoveMenuOpen; "" beside the files.
    QString pointedFile() const { return m_pointedFile; }

    bool MoveMenuOpen = false; // True while the menu over the files is up.

    DirListBox Dir1;   // The folders; an opened one is shown in File1.
    FileListBox File1; // The files of the folder; choosing one proposes a name, a double click or Enter plays it.
    TextBox Text1;     // The new name, its ending included; Enter renames.
    Label Label1;      // Rename the chosen file.
    Label Label2;      // Close, back to the main window.

Q_SIGNALS:
    /// The window has been put away; the main one is wanted back.
    void done();

private:
    void connectHandlers();
    void Dir1_Change();
    void File1_Click();
    void File1_DblClick();
    void File1_KeyDown(QKeyEvent *event);
    void File1_MouseDown();
    void File1_MouseMove(int row);
    void Text1_KeyDown(QKeyEvent *event);
    void Label1_Click();
    void Label2_Click();

    void placeForTwo();
    void choose(const QString &name);
    void chooseInPlaceOf(int row);
    void noteChoice();
    void showInTagEdit(const QString &path);
    void deleteChosen();
    void swapSides();
    void putProposalBack();
    void renameTo(const QString &oldPath, const QString &newPath);
    void refuseRename();
    QString chosenName() const { return File1.List(File1.ListIndex()); }

    Player &m_player;
    SongList &m_songs;
    Mp3Info &m_info;
    TagEdit &m_tagEdit;
    QString m_pointedFile;
};
