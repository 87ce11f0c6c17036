// The whole player: builds every window, runs their loads in the prescribed order, connects what one window wants with
// what another one does, and ends it all.
#pragma once

#include "app/mp3_frm.h"
#include "app/splash.h"
#include "platform/single_instance.h"

#include <memory>

class Program : public QObject
{
    Q_OBJECT

public:
    /// Builds and loads every window; nothing is shown yet.
    explicit Program(MediaEngine &engine);

    /// The start: a song of the command line plays at once, else the splash runs; then the main window is shown. False
    /// when another player runs already and this one is to end, unseen.
    bool start(const QString &commandLine);

    PlayModes m_modes;
    Mp3Frm m_mp3Frm;

private:
    void connectHandlers();
    void playCommandLine(const QString &commandLine);
    void hideMainWindow();
    void leave();

    SingleInstance m_instance;
    MediaEngine &m_engine;
    std::unique_ptr<Splash> m_splash;
};
