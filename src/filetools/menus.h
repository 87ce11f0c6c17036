// SPDX-License-Identifier: GPL-3.0-or-later
// The context menus and the commands behind them. What a command does to songs, files and play modes is done here; what
// it wants of other windows leaves as a signal.
#pragma once

#include "controls/menu_items.h"
#include "filetools/song_menu.h"

#include <functional>

class FormatMp3;
class Player;
class QContextMenuEvent;
class SongList;

/// The play list menu's items by index.
enum PlayListMenuItem { ClearListItem, LoadListItem, SaveListItem, PlayListMenuSeparator, RandomItem, SortListItem };

/// What the commands work on.
struct MenuParts {
    SongMenu &songMenu;
    SongList &songs; // The main window's lists.
    Player &player;
    FormatMp3 &formatMp3;
    std::function<QString(const QString &title, const QString &startFolder)> pickFolder; // "" when none was picked.
};

class Menus : public QObject
{
    Q_OBJECT

public:
    Menus(QObject *parent, MenuParts parts);

    /// Open a menu at a point of the screen.
    void openSongMenu(const QPoint &place) { m_parts.songMenu.mnuSongItem.popUp(place); }
    void openPlayListMenu(const QPoint &place) { mnuPlayListItems.popUp(place); }

    MenuItems mnuMp3NameItem;   // Over the new name: take it from the tag.
    MenuItems mnuPlayListItems; // Over the play list: its files and its order.
    MenuItems mnuTagEditItems;  // Over the name formatter's files: move one, read the folder again.

Q_SIGNALS:
    void nameToolsWanted();
    void optionsWanted();
    void playListToggled();
    void songSearchWanted();
    void aboutWanted();
    void playListCleared();
    void playListLoadWanted();
    void playListSaveWanted();

    /// The random order is on or off from now on.
    void randomSwitched(bool on);

private:
    void connectHandlers();
    void mnuSongItem_Click(int index);
    void mnuMp3NameItem_Click(int index);
    void mnuPlayListItems_Click(int index);
    void mnuTagEditItems_Click(int index);
    void File1_MouseDown(Qt::MouseButton button);
    void Text1_MouseDown(Qt::MouseButton button);
    void Text1_MenuKeyDown(QContextMenuEvent *event);

    void deleteSong();
    void switchAutoPlay();
    void switchRepeatSong();
    void switchRandom();
    void switchSorting();
    void movePointedFile();
    void move(const QString &name, const QString &toFolder);

    MenuParts m_parts;
};
