// SPDX-License-Identifier: GPL-3.0-or-later
// The search itself is a rule; a row's text is made when the row is looked at, so that a letter which matches
// a million songs costs no more than one which matches ten.
#include "playlist/song_search.h"

#include "base/names.h"
#include "controls/folder_lists.h"
#include "controls/fonts.h"
#include "playback/player.h"
#include "skins/places.h"

#include <QKeyEvent>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

SongSearch::SongSearch(FileListBox &File1, Player &player)
    : SkinWindow(u"SongSearch"_s, u"Song Search"_s, Picture::SongSearchSkin, places::SongSearch::window),
      m_songFolder(File1), m_player(player),
      Label1(this, {u"Label1"_s, u"Close search"_s, places::SongSearch::Label1}, u"Close"_s),
      Text1(this, {u"Text1"_s, u"Text to look for"_s, places::SongSearch::Text1}),
      List1(this, {u"List1"_s, u"Songs found"_s, places::SongSearch::List1})
{
    Label1.setButton(true);
    Label1.setFont(fonts::font(fonts::Face::Arial, 11));
    Text1.setFont(fonts::font(fonts::Face::Arial, 12));
    List1.setShownForm([this](int row, const QString &) { return shownResult(foundName(row), m_foundText); });
    connectHandlers();
}

void SongSearch::connectHandlers()
{
    connect(&Label1, &Label::Click, this, &SongSearch::Label1_Click);
    connect(&Text1, &TextBox::Change, this, &SongSearch::Text1_Change);
    connect(&Text1, &TextBox::KeyDown, this, &SongSearch::Text1_KeyDown);
    connect(&List1, &ListBox::DblClick, this, &SongSearch::List1_DblClick);
    connect(&List1, &ListBox::KeyDown, this, &SongSearch::List1_KeyDown);
    connect(this, &SkinWindow::closeRequested, this, &QWidget::hide);
    connect(&m_songFolder, &FileListBox::PathChange, this, &SongSearch::clearSearch);
}

// Another music folder: neither text nor results mean anything there. (An empty text, typed, would find every song.)
void SongSearch::clearSearch()
{
    const QSignalBlocker quiet(Text1);
    Text1.setText({});
    List1.Clear();
    m_names = SongNames();
    m_foundNames = NameList();
    m_matches.clear();
    notifyCount();
    if (isVisible())
        readNames();
}

void SongSearch::showEvent(QShowEvent *event)
{
    SkinWindow::showEvent(event);
    activateWindow();
    Text1.setFocus();
    Text1.selectAll(); // What is typed next replaces the last search.
    readNames();       // Now, so that the first letter is answered as fast as the others.
}

void SongSearch::hideEvent(QHideEvent *event)
{
    SkinWindow::hideEvent(event);
    m_names = SongNames();
}

// Close: the window goes; text and results stay for the next time.
void SongSearch::Label1_Click()
{
    hide();
}

// Takes the names of the folder in view, unless it has them.
void SongSearch::readNames()
{
    if (!m_names.names().isSharedWith(m_songFolder.items()))
        m_names = SongNames(m_songFolder.items());
}

// The text changed: search anew.
void SongSearch::Text1_Change()
{
    readNames();
    m_names.search(Text1.Text(), m_matches);
    m_foundNames = m_names.names();
    m_foundText = Text1.Text();
    List1.setRows(static_cast<int>(m_matches.size()));
    notifyCount();
}

// The list's accessible name says how many songs were found.
void SongSearch::notifyCount()
{
    const int count = List1.ListCount();
    List1.setAccessibleName(count == 1 ? u"1 song found"_s : u"%1 songs found"_s.arg(count));
}

// Down goes on to the results, Enter plays the first one.
void SongSearch::Text1_KeyDown(QKeyEvent *event)
{
    if (isEnter(*event)) {
        event->accept();
        playResult(0);
    } else if (event->key() == Qt::Key_Down) {
        event->accept();
        List1.setFocus();
        List1.setListIndex(std::max(0, List1.ListIndex()));
    }
}

// Play the result.
void SongSearch::List1_DblClick()
{
    playResult(List1.ListIndex());
}

// Enter plays the result, Up from the first one goes back to the text.
void SongSearch::List1_KeyDown(QKeyEvent *event)
{
    if (isEnter(*event)) {
        event->accept();
        playResult(List1.ListIndex());
    } else if (event->key() == Qt::Key_Up && List1.ListIndex() <= 0) {
        event->accept();
        Text1.setFocus();
    }
}

QString SongSearch::foundName(int row) const
{
    return m_foundNames[m_matches[static_cast<std::size_t>(row)].row];
}

// The title is the result as it is shown.
void SongSearch::playResult(int row)
{
    if (row >= 0 && row < List1.ListCount())
        m_player.play(pathIn(m_songFolder.Path(), foundName(row)), List1.List(row));
}
