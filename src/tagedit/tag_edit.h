// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor: shows the tag of one song and what its first frame says, adds a tag, saves or removes it. What is
// done to the file is in tag_block; the song that plays is refused here.
#pragma once

#include "base/timer.h"
#include "controls/fields.h"
#include "controls/frame.h"
#include "controls/label.h"
#include "controls/skin_window.h"
#include "mp3info/id3v1_tag.h"
#include "mp3info/quick_header.h"

class Player;
class SongFolder;

class TagEdit : public SkinWindow
{
    Q_OBJECT

public:
    /// The song that player plays is not touched; a new tag takes its texts from the name chosen in songs.
    TagEdit(const Player &player, const SongFolder &songs);

    /// Edits the song of a program path from now on: its tag and its data are read. What was typed is gone. Of a song
    /// that does not exist nothing is shown, what is there stays.
    void reload(const QString &path);

    /// Closes the window; no file is edited any more.
    void putAway();

    static constexpr int gapBeside = 4; // Logical pixels between it and the window it stands beside.

    /// Shows the window beside another one, which stays active.
    void showBeside(QWidget &neighbour);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setUpAppearance();
    void connectHandlers();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdCancel_Click();
    void cmdSave_Click();
    void Timer1_Timer();

    void GetTagInf();
    void GetMP3Inf();
    void showHeader(const QuickHeader &header);
    void showTagFrames(bool hasTag);
    void showTexts(const Id3v1Tag &tag);
    Id3v1Tag typedTag() const;
    QString nameForNewTag() const;
    void setFormCaption(const QString &caption);
    void watchSoon() { Timer1.setEnabled(true); }
    bool mayChangeTag();
    bool isTagKnown();

    const Player &m_player;
    const SongFolder &m_songs;
    QString m_file;        // The edited song, a program path.
    bool m_isRead = false; // What it holds is known.

    Label Caption;     // The window's caption; says so while a tag is removed.
    Frame frmNoTag;    // In the place of frmID3 when the song has no tag.
    Label labNoTag;    // Says so.
    Label cmdAdd;      // Add a tag, with texts taken from the song's name.
    Frame frmID3;      // The tag's texts.
    Label labTitle;    // Names the field Title.
    Label labArtist;   // Names the field Artist.
    Label labAlbum;    // Names the field Album.
    Label labYear;     // Names the field Year.
    Label labGenre;    // Names the field Genre.
    Label labComent;   // Names the field Comment.
    TextBox Title;     // 30 characters are kept.
    TextBox Artist;    // 30 characters are kept.
    TextBox Album;     // 30 characters are kept.
    TextBox Year;      // 4 characters are kept.
    ComboBox Genre;    // The editor's own genres; none stands for a genre without a name.
    TextBox Comment;   // 30 characters are kept.
    Frame frmNoKeys;   // Lies over the keys' seats on the skin while there is no tag.
    Frame frmButtons;  // What can be done with a tag.
    Label cmdRemove;   // Cut the tag off the file.
    Label cmdCancel;   // Read the tag again; what was typed is gone.
    Label cmdSave;     // Write the tag.
    Frame frmNoMPEG;   // In the place of frmMPEG when the file has no frame.
    Label labNoMPEG;   // Says so.
    Frame frmMPEG;     // What the song's first frame says.
    Label labSize;     // Size of the file.
    Label labLength;   // Play time.
    Label labLayer;    // Version and layer.
    Label labBitRate;  // Bit rate.
    Label labFreqChan; // Frequency and channels.
    Label labCRC;      // Is there a check sum?
    Label labCopy;     // Is it copyrighted?
    Label labEmphasis; // Emphasis.
    Label labOriginal; // Is it an original?
    Timer Timer1;      // Once, when it may have changed: is the edited song the one that plays?
};
