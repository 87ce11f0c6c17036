// SPDX-License-Identifier: GPL-3.0-or-later
// The search window: the songs of the music folder whose names hold the typed text, in the folder's order, the text in
// capitals. A double-click or Enter plays a result.
#pragma once

#include "controls/fields.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/skin_window.h"
#include "playlist/song_match.h"

class FileListBox;
class Player;

class SongSearch : public SkinWindow
{
    Q_OBJECT

public:
    /// File1's songs are searched; its folder is where results are played from.
    SongSearch(FileListBox &File1, Player &player);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void connectHandlers();
    void Label1_Click();
    void Text1_Change();
    void Text1_KeyDown(QKeyEvent *event);
    void List1_DblClick();
    void List1_KeyDown(QKeyEvent *event);

    void clearSearch();
    void readNames();
    void playResult(int row);

    FileListBox &m_songFolder;
    Player &m_player;
    SongNames m_names;                // The songs in view when last searched; let go while the window is away.
    std::vector<SongMatch> m_matches; // One for each row of List1.
    qsizetype m_textLength = 0;       // Of the text they match.

    Label Label1;  // Close.
    TextBox Text1; // The text to look for; every change searches anew.
    ListBox List1; // The results: file names, the first match in capitals.
};
