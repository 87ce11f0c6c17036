// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/splash.h"

#include "app/display_texts.h"
#include "app/version.h"
#include "controls/fonts.h"
#include "skins/places.h"

#include <QGuiApplication>
#include <QScreen>

using namespace Qt::StringLiterals;

Splash::Splash()
    : SkinWindow(u"Splash"_s, programName(), Picture::SplashSkin, places::Splash::window),
      TheVer(this, {u"TheVer"_s, u"Version"_s, places::Splash::TheVer}, u"Version"_s),
      Label2(this, {u"Label2"_s, u"Status"_s, places::Splash::Label2}, u"Loading Orvel..."_s),
      Label1(this, {u"Label1"_s, u"Title"_s, places::Splash::Label1}, u"Zelk of Tessadin Mp3"_s),
      ProgBar(this, {u"ProgBar"_s, u"Progress"_s, places::Splash::ProgBar})
{
    setWindowFlag(Qt::SplashScreen);
    TheVer.setFont(fonts::font(fonts::Face::ComicSansMs, 13));
    Label2.setFont(fonts::font(fonts::Face::MatisseItc, 12));
    Label1.setFont(fonts::font(fonts::Face::MatisseItc, 22, QFont::Bold));
    TheVer.setCaption(versionText());
}

void Splash::animate()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    move(screen.center() - rect().center());
    show();
    repaint();
    for (int step = 1; step <= splashSteps; ++step) {
        const SplashStep shown = splashStep(step, ProgBar.width());
        Label2.setCaption(shown.status);
        ProgBar.setFraction(shown.fraction);
        repaint();
        PumpEvents();
    }
}
