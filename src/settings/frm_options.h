// SPDX-License-Identifier: GPL-3.0-or-later
// The options window. Its check boxes are the one home of the three option flags: whoever needs one asks here, and the
// first question loads the window. What the flags change in other windows leaves as signals.
#pragma once

#include "controls/fields.h"
#include "controls/label.h"
#include "controls/skin_window.h"
#include "settings/skin_store.h"

class frmOptions : public SkinWindow
{
    Q_OBJECT

public:
    frmOptions();

    /// Reads the flags from the settings, once; what follows from each follows as if the user had clicked it.
    void Load();

    bool translucencyChosen();
    bool toolTipDataChosen();

    /// Is the music folder chosen with the desktop's picker instead of the player's own window?
    bool browseDialogChosen();

Q_SIGNALS:
    /// Another skin was picked by its name: it is to be worn at once.
    void skinPicked(const QString &name);

    /// Check2 changed: the song list takes the hint, or loses its tool tip.
    void toolTipDataChanged(bool on);

    /// OK was clicked: the main window, the folder browser, the name tool, the play list and the about window, in this
    /// order, become translucent or opaque.
    void translucencyApplied(bool on);

protected:
    void showEvent(QShowEvent *event) override;
    void skinChanged() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void connectHandlers();
    void takeColours();
    void listSkins();
    void ApplyTranslucencyToAll(bool on);

    void Check1_Click();
    void Check2_Click();
    void Check4_Click();
    void cboSkin_Click(int index);
    void Label1_Click();

    CheckBox Check1;  // The windows are translucent; this one shows it at once.
    CheckBox Check2;  // Pointing at a song shows its data.
    CheckBox Check3;  // The music folder is chosen in the desktop's picker.
    CheckBox Check4;  // Puts a shortcut on the desktop; not stored, and unchecking takes nothing away.
    Label lblSkin;    // Names the drop-down beside it.
    ComboBox cboSkin; // The skins by their titles; the picked one is worn at once, and kept by OK.
    Label Label1;     // OK: stores the flags, closes, applies translucency.

    QList<SkinPlace> m_skins; // What cboSkin shows.
    QString m_pickedSkin;     // By the user, since the player runs; "" as long as none is.
    bool m_loaded = false;
    bool m_coloured = false;
};
