// SPDX-License-Identifier: GPL-3.0-or-later
#include "tagedit/tag_edit.h"

#include "base/names.h"
#include "base/numbers.h"
#include "base/texts.h"
#include "base/window_place.h"
#include "controls/fonts.h"
#include "controls/msg_box.h"
#include "controls/skin.h"
#include "mp3info/mp3_info.h"
#include "platform/folders.h"
#include "playback/player.h"
#include "skins/places.h"
#include "tagedit/editor_genres.h"
#include "tagedit/tag_block.h"

#include <QKeyEvent>
#include <QScreen>

#include <array>

using namespace Qt::StringLiterals;
namespace place = places::TagEdit;

namespace
{
const QString formCaption = u"Zelk MP3 ID3 Tag Editor"_s;
const QString removingCaption = u"Removing Tag"_s;
const QString cannotSave = u"Can't Edit The Playing Song"_s;
const QString cannotChange = u"Can't Edit Playing Song"_s;
constexpr int soonMs = 1;

QStringList genreNames()
{
    QStringList names;
    for (const EditorGenre &genre : editorGenres)
        names += QString::fromLatin1(genre.name);
    return names;
}
} // namespace

TagEdit::TagEdit(const Player &player, const SongFolder &songs)
    : SkinWindow(u"TagEdit"_s, formCaption, Picture::TagEditSkin, place::window), m_player(player), m_songs(songs),
      Caption(this, {u"Caption"_s, u"Window caption"_s, place::Caption}, formCaption),
      frmNoTag(this, {u"frmNoTag"_s, u"No tag"_s, place::frmNoTag}, u"Tag info"_s),
      labNoTag(&frmNoTag, frmNoTag.inside({u"labNoTag"_s, u"No tag message"_s, place::labNoTag}),
               u"This MP3 doesn't contain ID3 Tag"_s),
      cmdAdd(&frmNoTag, frmNoTag.inside({u"cmdAdd"_s, u"Add a tag"_s, place::cmdAdd}), u"Add ID3"_s),
      frmID3(this, {u"frmID3"_s, u"Tag"_s, place::frmID3}, u"Tag info"_s),
      labTitle(&frmID3, frmID3.inside({u"labTitle"_s, u"Title caption"_s, place::labTitle}), u"Title:"_s),
      labArtist(&frmID3, frmID3.inside({u"labArtist"_s, u"Artist caption"_s, place::labArtist}), u"Artist:"_s),
      labAlbum(&frmID3, frmID3.inside({u"labAlbum"_s, u"Album caption"_s, place::labAlbum}), u"Album:"_s),
      labYear(&frmID3, frmID3.inside({u"labYear"_s, u"Year caption"_s, place::labYear}), u"Year:"_s),
      labGenre(&frmID3, frmID3.inside({u"labGenre"_s, u"Genre caption"_s, place::labGenre}), u"Genre"_s),
      labComent(&frmID3, frmID3.inside({u"labComent"_s, u"Comment caption"_s, place::labComent}), u"Comment:"_s),
      Title(&frmID3, frmID3.inside({u"Title"_s, u"Title"_s, place::Title})),
      Artist(&frmID3, frmID3.inside({u"Artist"_s, u"Artist"_s, place::Artist})),
      Album(&frmID3, frmID3.inside({u"Album"_s, u"Album"_s, place::Album})),
      Year(&frmID3, frmID3.inside({u"Year"_s, u"Year"_s, place::Year})),
      Genre(&frmID3, frmID3.inside({u"Genre"_s, u"Genre"_s, place::Genre}), genreNames()),
      Comment(&frmID3, frmID3.inside({u"Comment"_s, u"Comment"_s, place::Comment})),
      frmNoKeys(this, {u"frmNoKeys"_s, u"No keys"_s, place::frmButtons}, {}),
      frmButtons(this, {u"frmButtons"_s, u"Tag commands"_s, place::frmButtons}, {}),
      cmdRemove(&frmButtons, frmButtons.inside({u"cmdRemove"_s, u"Remove the tag"_s, place::cmdRemove}),
                u"Remove ID3"_s),
      cmdCancel(&frmButtons, frmButtons.inside({u"cmdCancel"_s, u"Discard the changes"_s, place::cmdCancel}),
                u"Cancel"_s),
      cmdSave(&frmButtons, frmButtons.inside({u"cmdSave"_s, u"Save the tag"_s, place::cmdSave}), u"Save"_s),
      frmNoMPEG(this, {u"frmNoMPEG"_s, u"No MPEG data"_s, place::frmNoMPEG}, u"MPEG info"_s),
      labNoMPEG(&frmNoMPEG, frmNoMPEG.inside({u"labNoMPEG"_s, u"No MPEG data message"_s, place::labNoMPEG}),
                u"Probably not a MP3 file..."_s),
      frmMPEG(this, {u"frmMPEG"_s, u"MPEG data"_s, place::frmMPEG}, u"MPEG info"_s),
      labSize(&frmMPEG, frmMPEG.inside({u"labSize"_s, u"Size"_s, place::labSize})),
      labLength(&frmMPEG, frmMPEG.inside({u"labLength"_s, u"Length"_s, place::labLength})),
      labLayer(&frmMPEG, frmMPEG.inside({u"labLayer"_s, u"Version and layer"_s, place::labLayer})),
      labBitRate(&frmMPEG, frmMPEG.inside({u"labBitRate"_s, u"Bit rate"_s, place::labBitRate})),
      labFreqChan(&frmMPEG, frmMPEG.inside({u"labFreqChan"_s, u"Frequency and channels"_s, place::labFreqChan})),
      labCRC(&frmMPEG, frmMPEG.inside({u"labCRC"_s, u"Check sum"_s, place::labCRC})),
      labCopy(&frmMPEG, frmMPEG.inside({u"labCopy"_s, u"Copyrighted"_s, place::labCopy})),
      labEmphasis(&frmMPEG, frmMPEG.inside({u"labEmphasis"_s, u"Emphasis"_s, place::labEmphasis})),
      labOriginal(&frmMPEG, frmMPEG.inside({u"labOriginal"_s, u"Original"_s, place::labOriginal})),
      Timer1(this, u"Timer1"_s, soonMs, Timer::Kind::OneShot)
{
    setUpAppearance();
    connectHandlers();
}

void TagEdit::setUpAppearance()
{
    setAttribute(Qt::WA_ShowWithoutActivating); // The window it stands beside stays active.
    const QFont small = fonts::font(fonts::Face::SmallFonts, 11);
    for (Label *label : findChildren<Label *>())
        label->setFont(fonts::font(fonts::Face::Arial, 12));
    for (Label *button : {&cmdAdd, &cmdRemove, &cmdCancel, &cmdSave}) {
        button->setButton(true);
        button->setFont(small);
    }
    for (TextBox *box : {&Title, &Artist, &Album, &Year, &Comment})
        box->setFont(fonts::font(fonts::Face::Arial, 12));
    for (Label *button : {&cmdAdd, &cmdSave})
        button->setColour(Colour::accentText);
    for (Label *caption : {&labTitle, &labArtist, &labAlbum, &labYear, &labGenre, &labComent})
        caption->setColour(Colour::captionDim);
    for (Label *message : {&labNoTag, &labNoMPEG})
        message->setAlignment(Qt::AlignCenter);
    Caption.setFont(fonts::font(fonts::Face::SmallFonts, 12, QFont::Bold));
    frmNoTag.setPicture(Picture::NoTagFrame);
    frmNoKeys.setPlate();
    frmNoMPEG.setPlate();
    showTagFrames(true);
    frmNoMPEG.hide();
}

void TagEdit::connectHandlers()
{
    connect(&cmdAdd, &Label::Click, this, &TagEdit::cmdAdd_Click);
    connect(&cmdRemove, &Label::Click, this, &TagEdit::cmdRemove_Click);
    connect(&cmdCancel, &Label::Click, this, &TagEdit::cmdCancel_Click);
    connect(&cmdSave, &Label::Click, this, &TagEdit::cmdSave_Click);
    connect(&Timer1, &Timer::tick, this, &TagEdit::Timer1_Timer);
    connect(&m_player, &Player::songChanged, this, &TagEdit::watchSoon);
    connect(this, &SkinWindow::closeRequested, this, &QWidget::hide);
}

void TagEdit::reload(const QString &path)
{
    m_file = path;
    GetTagInf();
    GetMP3Inf();
    watchSoon();
}

void TagEdit::showBeside(QWidget &neighbour)
{
    const QRect screen = neighbour.screen()->availableGeometry();
    move(besidePlace(screen, neighbour.frameGeometry(), size(), gapBeside));
    show();
    neighbour.raise();
    neighbour.activateWindow();
}

void TagEdit::putAway()
{
    m_file.clear();
    hide();
}

// Enter in a field saves, or says why not.
void TagEdit::keyPressEvent(QKeyEvent *event)
{
    if (isEnter(*event) && frmButtons.isVisible())
        cmdSave_Click();
    else
        SkinWindow::keyPressEvent(event);
}

// Add ID3: the file gets an empty tag at once, the fields are filled from its name. Only Save writes them.
void TagEdit::cmdAdd_Click()
{
    if (!mayChangeTag())
        return;
    if (!addTag(m_file)) {
        GetTagInf();
        return;
    }
    showTagFrames(true);
    const Id3v1Tag proposal = tagFromName(nameForNewTag());
    showTexts(proposal);
    Genre.setListIndex(noGenrePosition);
    Title.setFocus();
}

// Remove ID3: the tag is cut off the file, and the window shows what is left.
void TagEdit::cmdRemove_Click()
{
    if (!mayChangeTag())
        return;
    showTagFrames(false);
    setFormCaption(removingCaption);
    repaint();
    removeTag(m_file);
    setFormCaption(formCaption);
    GetTagInf();
}

// Cancel: the song is read again.
void TagEdit::cmdCancel_Click()
{
    GetTagInf();
    GetMP3Inf();
}

// Save: the fields become the file's tag, and the window shows what the tag could take of them.
void TagEdit::cmdSave_Click()
{
    if (m_player.isPlayingFile(m_file))
        MsgBox::show(cannotSave, u"ReName Error"_s, MsgBox::Icon::Information);
    else if (isTagKnown() && saveTag(m_file, typedTag()))
        GetTagInf();
}

// The song that plays may have changed: its tag must stay as it is, and the buttons' tips say so.
void TagEdit::Timer1_Timer()
{
    const bool mayChange = !m_player.isPlayingFile(m_file);
    if (cmdSave.isEnabled() == mayChange)
        return;
    for (Label *button : {&cmdSave, &cmdRemove, &cmdAdd}) {
        const QString why = button == &cmdSave ? cannotSave : cannotChange;
        button->setEnabled(mayChange);
        button->setToolTip(mayChange ? QString() : why);
    }
}

void TagEdit::GetTagInf()
{
    const auto [isRead, tag] = readTag(m_file);
    m_isRead = isRead;
    if (!isRead)
        return;
    showTagFrames(tag.has_value());
    if (!tag)
        return;
    showTexts(*tag);
    if (const int position = editorGenrePosition(tag->genre); position != noGenrePosition)
        Genre.setListIndex(position);
}

void TagEdit::GetMP3Inf()
{
    const QuickHeader header = songHeader(m_file);
    const bool hasFrame = !header.mpegVersion.isEmpty();
    frmMPEG.setVisible(hasFrame);
    frmNoMPEG.setVisible(!hasFrame);
    showHeader(header);
}

void TagEdit::showHeader(const QuickHeader &header)
{
    const int seconds = roundHalfEven(numericValue(header.length));
    labSize.setCaption(u"Size: "_s + Mp3Info::FormatFileSize(numericValue(header.size)));
    labLength.setCaption(u"Length: "_s + FormatPlayTime(seconds));
    labLayer.setCaption(header.mpegVersion + u' ' + header.layer);
    labBitRate.setCaption(header.bitRate);
    labFreqChan.setCaption(header.frequency + u' ' + header.channelMode);
    labCRC.setCaption(u"CRCs: "_s + header.crc);
    labCopy.setCaption(u"Copyrighted: "_s + header.copyrighted);
    labEmphasis.setCaption(u"Emphasis: "_s + header.emphasis);
    labOriginal.setCaption(u"Original: "_s + header.original);
}

// A covered frame is hidden, so that the focus cannot go there. The frame in its place is shown first, to take the
// focus over.
void TagEdit::showTagFrames(bool hasTag)
{
    const std::array withTag = {&frmID3, &frmButtons};
    const std::array withoutTag = {&frmNoTag, &frmNoKeys};
    for (Frame *shown : hasTag ? withTag : withoutTag)
        shown->show();
    for (Frame *hidden : hasTag ? withoutTag : withTag)
        hidden->hide();
}

// What is typed behind a NUL would be cut off: the boxes end there.
void TagEdit::showTexts(const Id3v1Tag &tag)
{
    Title.setText(untilNul(tag.title).toString());
    Artist.setText(untilNul(tag.artist).toString());
    Album.setText(untilNul(tag.album).toString());
    Year.setText(untilNul(tag.year).toString());
    Comment.setText(untilNul(tag.comment).toString());
}

Id3v1Tag TagEdit::typedTag() const
{
    return {Title.Text(), Artist.Text(),  Album.Text(),
            Year.Text(),  Comment.Text(), editorGenreNumber(Genre.ListIndex())};
}

// The texts come from the name of the song chosen in the main window; without one, from the edited song's.
QString TagEdit::nameForNewTag() const
{
    const QString chosen = m_songs.chosenName();
    return chosen.isEmpty() ? FileNameFromPath(m_file) : chosen;
}

void TagEdit::setFormCaption(const QString &caption)
{
    setWindowTitle(caption);
    Caption.setCaption(caption);
}

// Is it another song that plays? Shows a message when it is not.
bool TagEdit::mayChangeTag()
{
    if (m_player.isPlayingFile(m_file)) {
        MsgBox::show(cannotChange, u"Tag Error"_s); // The song may end while the box is up.
        return false;
    }
    return isTagKnown();
}

// A tag that could not be read is shown before it may be written over.
bool TagEdit::isTagKnown()
{
    const bool wasRead = m_isRead;
    if (!wasRead)
        GetTagInf();
    return wasRead;
}
