// SPDX-License-Identifier: GPL-3.0-or-later
// The search window: the songs of the music folder whose names hold the typed text, in the folder's order, the text in
// capitals. A double-click or Enter plays a result: the very file that it stands for.
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
    QString foundName(int row) const;
    void playResult(int row);
    void notifyCount();

    FileListBox &m_songFolder;
    Player &m_player;
    SongNames m_names;                // The songs in view, made ready to search; let go while the window is away.
    NameList m_foundNames;            // Those that were searched last,
    std::vector<SongMatch> m_matches; // which of them each row of List1 shows,
    QString m_foundText;              // and the text that was found in it.

    Label Label1;  // Close.
    TextBox Text1; // The text to look for; every change searches anew.
    ListBox List1; // The results: file names, the first match in capitals.
};
