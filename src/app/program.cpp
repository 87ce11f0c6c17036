// The whole player.
#include "app/program.h"

#include "base/names.h"
#include "settings/settings_store.h"

#include <QCoreApplication>
#include <QThread>

namespace
{
constexpr int partingPauses = 2;
constexpr int partingPauseMs = 100;
} // namespace

Program::Program(MediaEngine &engine) : m_modes(this), m_mp3Frm(engine, m_modes), m_engine(engine)
{
    connectHandlers();
    m_mp3Frm.Load();
    ensureSettingsFolder();
}

void Program::connectHandlers()
{
    connect(&m_mp3Frm, &Mp3Frm::hideWanted, this, &Program::hideMainWindow);
    connect(&m_mp3Frm, &Mp3Frm::leaving, this, &Program::leave);
    connect(&m_mp3Frm, &Mp3Frm::unloaded, this, [] { QCoreApplication::quit(); });
}

bool Program::start(const QString &commandLine)
{
    if (m_instance.isPreviousRunning())
        return false;
    if (commandLine.isEmpty()) {
        m_splash = std::make_unique<Splash>();
        m_splash->animate();
        m_splash->hide();
    } else {
        playCommandLine(commandLine);
    }
    m_mp3Frm.show();
    return true;
}

// The text is one path in quotation marks; its first and last character go, whatever they are.
void Program::playCommandLine(const QString &commandLine)
{
    const QString path = commandLine.mid(1, std::max<qsizetype>(commandLine.size() - 2, 0));
    m_mp3Frm.player().playFile(path, FileNameFromPath(path));
    m_mp3Frm.setMusicFolder(FolderFromPath(path));
}

void Program::hideMainWindow()
{
    m_mp3Frm.showMinimized();
}

void Program::leave()
{
    for (int pause = 0; pause < partingPauses; ++pause) {
        QThread::msleep(partingPauseMs);
        QCoreApplication::processEvents();
    }
    QCoreApplication::quit();
}
