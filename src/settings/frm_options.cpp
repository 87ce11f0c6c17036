// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/frm_options.h"

#include "base/numbers.h"
#include "controls/fonts.h"
#include "controls/msg_box.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/folders.h"
#include "settings/settings_store.h"
#include "settings/window_effects.h"
#include "skins/places.h"

#include <QGuiApplication>
#include <QHash>
#include <QKeyEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int optionCaptionPixels = 13;

// A stored text that is no number leaves the box as it is.
void readState(CheckBox &box, Setting setting)
{
    if (const auto state = wholeNumber(readSetting(setting)))
        box.setState(*state);
}

void writeState(const CheckBox &box, Setting setting)
{
    writeSetting(setting, QString::number(box.State()));
}

// What each skin is listed as: its title, and where several share one the names of their folders.
QStringList entriesOf(const QList<SkinPlace> &skins)
{
    QHash<QString, int> counts;
    for (const SkinPlace &skin : skins)
        ++counts[skin.title.toCaseFolded()];
    QStringList entries;
    for (const SkinPlace &skin : skins)
        entries += counts[skin.title.toCaseFolded()] > 1 ? u"%1 (%2)"_s.arg(skin.title, skin.name) : skin.title;
    return entries;
}

// Makes the shortcut. The text for the user is empty whether that worked or not.
QString CreateDesktopLink(const QString &folder, const QString &name, const QString &target)
{
    createDesktopShortcut(folder, name, target);
    return {};
}
} // namespace

frmOptions::frmOptions()
    : SkinWindow(u"frmOptions"_s, u"Options"_s, Picture::OptionsSkin, places::frmOptions::window),
      Check1(this, {u"Check1"_s, u"Translucency"_s, places::frmOptions::Check1}, u"Translucentcy"_s),
      Check2(this, {u"Check2"_s, u"Tool tip data"_s, places::frmOptions::Check2}, u"Tool Tip Data"_s),
      Check3(this, {u"Check3"_s, u"Browse for folder dialog"_s, places::frmOptions::Check3},
             u"Browse For Folder Dialog"_s),
      Check4(this, {u"Check4"_s, u"Link on desktop"_s, places::frmOptions::Check4}, u"Link On Desktop"_s),
      lblSkin(this, {u"lblSkin"_s, u"Skin caption"_s, places::frmOptions::lblSkin}, u"Skin"_s),
      cboSkin(this, {u"cboSkin"_s, u"Skin"_s, places::frmOptions::cboSkin}, {}),
      Label1(this, {u"Label1"_s, u"Save options"_s, places::frmOptions::Label1}, u"OK"_s)
{
    Check1.setToolTip(u"The Translucent Effect Observed Only On Win 2000 and Above."_s);
    Check2.setToolTip(u"The Data Shown When Your Mouse Is Over A Song."_s);
    Check3.setToolTip(u"Different ways to locate your folder."_s);
    lblSkin.setUntold();
    Label1.setButton(true);
    connectHandlers();
}

void frmOptions::connectHandlers()
{
    connect(this, &SkinWindow::closeRequested, this, &QWidget::hide);
    connect(&Check1, &CheckBox::Click, this, &frmOptions::Check1_Click);
    connect(&Check2, &CheckBox::Click, this, &frmOptions::Check2_Click);
    connect(&Check4, &CheckBox::Click, this, &frmOptions::Check4_Click);
    connect(&cboSkin, &QComboBox::activated, this, &frmOptions::cboSkin_Click);
    connect(&Label1, &Label::Click, this, &frmOptions::Label1_Click);
}

void frmOptions::Load()
{
    if (std::exchange(m_loaded, true))
        return;
    readState(Check1, Setting::AlphaBlending);
    readState(Check2, Setting::ToolTipData);
    readState(Check3, Setting::Browse4Dialog);
    if (FileExists(paths::desktopLink))
        Check4.setState(1);
}

bool frmOptions::translucencyChosen()
{
    Load();
    return Check1.State() == 1;
}

bool frmOptions::toolTipDataChosen()
{
    Load();
    return Check2.State() == 1;
}

bool frmOptions::browseDialogChosen()
{
    Load();
    return Check3.State() == 1;
}

// Fonts and the skin's colour are needed by what is seen alone: a start that shows no options does not pay for them.
void frmOptions::showEvent(QShowEvent *event)
{
    Load();
    if (!std::exchange(m_coloured, true)) {
        for (QWidget *captioned : std::initializer_list<QWidget *>{&Check1, &Check2, &Check3, &Check4, &lblSkin})
            captioned->setFont(fonts::font(fonts::Face::ComicSansMs, optionCaptionPixels));
        Label1.setFont(fonts::font(fonts::Face::ComicSansMs, optionCaptionPixels, QFont::Bold));
        takeColours();
    }
    listSkins();
    SkinWindow::showEvent(event);
    Check1.setFocus();
}

void frmOptions::takeColours()
{
    const QColor ground = skinColourAt({50, 50});
    for (CheckBox *box : {&Check1, &Check2, &Check3, &Check4})
        box->setBackColour(ground);
}

void frmOptions::skinChanged()
{
    if (!m_pickedSkin.isEmpty())
        m_pickedSkin = currentSkin().name; // One that was dropped since then counts.
    if (m_coloured)
        takeColours();
    if (isVisible())
        listSkins();
}

// Read anew each time: the user may have put a folder there. A skin of this run alone is listed, too.
void frmOptions::listSkins()
{
    const Skin &worn = currentSkin();
    m_skins = skinsThere();
    const auto isWorn = [&worn](const SkinPlace &skin) { return skin.folder == worn.folders.value(0); };
    auto chosen = std::find_if(m_skins.begin(), m_skins.end(), isWorn);
    if (chosen == m_skins.end())
        chosen = m_skins.insert(m_skins.end(), {worn.name, worn.title, worn.folders.value(0)});
    cboSkin.clear();
    cboSkin.addItems(entriesOf(m_skins));
    cboSkin.setListIndex(static_cast<int>(chosen - m_skins.begin()));
}

// Enter is OK.
void frmOptions::keyPressEvent(QKeyEvent *event)
{
    if (isEnter(*event))
        Label1.press();
    else
        SkinWindow::keyPressEvent(event);
}

void frmOptions::ApplyTranslucencyToAll(bool on)
{
    Q_EMIT translucencyApplied(on);
}

// Translucency chosen or not: this window shows what it is like.
void frmOptions::Check1_Click()
{
    MakeTranslucent(*this, asFlag(Check1.State() == 1));
}

// Song data chosen or not: the song list's tool tip says how to get them.
void frmOptions::Check2_Click()
{
    Q_EMIT toolTipDataChanged(Check2.State() == 1);
}

// Shortcut asked for: a box says where it goes and what it starts, a second one, empty, that it was tried.
void frmOptions::Check4_Click()
{
    if (Check4.State() == 0)
        return;
    const QString title = QGuiApplication::applicationDisplayName();
    const QString desktop = DesktopFolderPath();
    MsgBox::show(displayPath(desktop) + u"\\\r\n"_s + AppFilePath(), title);
    MsgBox::show(CreateDesktopLink(desktop + u'\\', u"KiV Mp3"_s, AppFilePath()), title);
}

// A skin: it is worn at once.
void frmOptions::cboSkin_Click(int index)
{
    m_pickedSkin = m_skins.value(index).name;
    Q_EMIT skinPicked(m_pickedSkin);
}

// OK: the flags are stored, the window closes, the other windows follow. A skin that cannot be kept is told: unlike a
// flag it was chosen with care.
void frmOptions::Label1_Click()
{
    writeState(Check1, Setting::AlphaBlending);
    writeState(Check2, Setting::ToolTipData);
    writeState(Check3, Setting::Browse4Dialog);
    const QString fault = m_pickedSkin.isEmpty() ? QString() : keepChosenSkin(m_pickedSkin);
    if (!fault.isEmpty())
        MsgBox::show(fault, QGuiApplication::applicationDisplayName(), MsgBox::Icon::Critical);
    hide();
    ApplyTranslucencyToAll(Check1.State() == 1);
}
