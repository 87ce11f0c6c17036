// SPDX-License-Identifier: GPL-3.0-or-later
// libmpv; the only file that knows its header.
//
// libmpv's own threads call wake(), which only queues drain() on the user-interface thread.
#include "playback/mpv_core.h"

#include "platform/loaded_library.h"

#include <QElapsedTimer>

#include <clocale>
#include <cmath>
#include <mpv/client.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr quint64 noSerial = 0;
constexpr quint64 lastSerial = ~quint64(0); // Of the last order.
constexpr int lastWaitMs = 1500;

struct Option {
    const char *name;
    const char *value;
};

// An option that this release of libmpv does not know is left out: their names change.
constexpr Option options[] = {
    // Only the engine: no files of the user's, no scripts, no windows, no keys.
    {"config", "no"},
    {"terminal", "no"},
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"osc", "no"},
    {"ytdl", "no"},
    {"input-default-bindings", "no"},
    {"input-builtin-bindings", "no"},
    {"audio-client-name", "KiV Mp3"},
    {"title", "${media-title}"}, // Of the stream; libmpv would add its own name.
    // Only sound, and only from the file that was named.
    {"vid", "no"},
    {"sid", "no"},
    {"vo", "null"},
    {"audio-display", "no"},
    {"autoload-files", "no"},
    {"sub-auto", "no"},
    {"audio-file-auto", "no"},
    {"cover-art-auto", "no"},
    {"demuxer", "lavf"}, // Else a play list in an .mp3 plays the files it names.
    {"access-references", "no"},
    // One song at a time; what comes next is not its business.
    {"idle", "yes"},
    {"keep-open", "no"},
    {"gapless-audio", "no"}, // Else the end is reported 0.4 s early.
    {"prefetch-playlist", "no"},
    {"resume-playback", "no"},
    {"save-position-on-quit", "no"},
    // Loudness and places are exact.
    {"replaygain", "no"},
    {"audio-format", "float"}, // Else quiet volumes of wav songs are wrong.
    {"volume-max", "100"},
    {"hr-seek", "yes"},
    {"hr-seek-demuxer-offset", "0.5"}, // Else each seek in an mp3 begins with silence.
    // Thrift: no reading thread and no cache.
    {"cache", "no"},
    {"demuxer-thread", "no"},
    {"demuxer-max-bytes", "1MiB"},
    {"demuxer-max-back-bytes", "0"},
    {"audio-buffer", "2"},
};

// What an .mp3, .wav or .wma may turn out to be. Formats that open other files or the network are not among them;
// pictures are, so that they are known to hold no sound.
constexpr char songFormats[] =
    "asf,mp3,wav,w64,aac,ac3,eac3,dts,flac,ogg,mov,matroska,aiff,ape,wv,tta,mpc,mpc8,amr,au,caf,"
    "dsf,iff,voc,rm,avi,flv,mpeg,mpegts,loas,latm,xwma,gif,jpeg_pipe,png_pipe,webp_pipe,bmp_pipe";

// How far ahead the sound device is filled. Far ahead is thrifty: at 100 ms a sound server wakes the player 150 times a
// second, at 1000 ms 17 times. But loudness is applied before the device, so it would be heard late. So the first
// change of loudness in a song opens the device anew, near ahead, and what follows is heard at once.
constexpr Option farAhead[] = {
    {"pulse-buffer", "1000"}, {"alsa-buffer-time", "1000000"}, {"pipewire-buffer", "500"}, {"ao-null-buffer", "2"}};
constexpr Option nearAhead[] = {
    {"pulse-buffer", "60"}, {"alsa-buffer-time", "60000"}, {"pipewire-buffer", "20"}, {"ao-null-buffer", "0.06"}};

// The outputs to try in turn; the last one plays to nobody where there is no sound device.
constexpr char deviceOutputs[] = "pipewire,pulse,alsa,null";
constexpr Option recordedOutput[] = {
    {"ao", "pcm"},
    {"ao-pcm-append", "yes"},
    {"ao-pcm-waveheader", "no"},
    {"audio-samplerate", "44100"},
    {"audio-channels", "stereo"},
};

// libmpv's linear volume, which it takes to the power of three.
double mpvVolume(int hundredthsOfDecibel)
{
    return hundredthsOfDecibel <= -10000 ? 0 : 100 * std::pow(10, hundredthsOfDecibel / 6000.0);
}

// The song's entry number in the answer to "loadfile"; 0 when it was refused.
qint64 entryIn(const mpv_event &answer)
{
    const mpv_node &result = static_cast<mpv_event_command *>(answer.data)->result;
    if (answer.error < 0 || result.format != MPV_FORMAT_NODE_MAP)
        return 0;
    for (int i = 0; i < result.u.list->num; ++i)
        if (qstrcmp(result.u.list->keys[i], "playlist_entry_id") == 0)
            return result.u.list->values[i].u.int64;
    return 0;
}

MpvFailure failureOf(int error)
{
    switch (error) {
    case MPV_ERROR_LOADING_FAILED:
        return MpvFailure::Loading;
    case MPV_ERROR_AO_INIT_FAILED:
        return MpvFailure::Device;
    case MPV_ERROR_NOTHING_TO_PLAY:
        return MpvFailure::NothingToPlay;
    case MPV_ERROR_UNKNOWN_FORMAT:
        return MpvFailure::UnknownFormat;
    default:
        return MpvFailure::Other;
    }
}

void saysNothing(const char *, int, const char *, int, const char *, ...) {}

// Without a sound card libasound, which libmpv brings along, writes a page on stderr; what matters the player says
// itself.
void keepAlsaQuiet()
{
    using SetHandler = int (*)(decltype(&saysNothing));
    QLibrary library(u"asound"_s, 2);
    if (const auto setHandler = reinterpret_cast<SetHandler>(library.resolve("snd_lib_error_set_handler")))
        setHandler(saysNothing);
}
} // namespace

struct MpvCore::Functions : LoadedLibrary {
    Functions() : LoadedLibrary(u"mpv"_s, 2) {}
    Function<decltype(::mpv_create)> create{*this, "mpv_create"};
    Function<decltype(::mpv_initialize)> initialize{*this, "mpv_initialize"};
    Function<decltype(::mpv_terminate_destroy)> terminate_destroy{*this, "mpv_terminate_destroy"};
    Function<decltype(::mpv_set_option_string)> set_option_string{*this, "mpv_set_option_string"};
    Function<decltype(::mpv_set_property_async)> set_property_async{*this, "mpv_set_property_async"};
    Function<decltype(::mpv_get_property_async)> get_property_async{*this, "mpv_get_property_async"};
    Function<decltype(::mpv_observe_property)> observe_property{*this, "mpv_observe_property"};
    Function<decltype(::mpv_command_async)> command_async{*this, "mpv_command_async"};
    Function<decltype(::mpv_wait_event)> wait_event{*this, "mpv_wait_event"};
    Function<decltype(::mpv_set_wakeup_callback)> set_wakeup_callback{*this, "mpv_set_wakeup_callback"};
    Function<decltype(::mpv_error_string)> error_string{*this, "mpv_error_string"};
};

bool MpvCore::isInstalled()
{
    return Functions().isComplete();
}

MpvCore::MpvCore(MpvListener &listener) : m_listener(listener), m_mpv(new Functions) {}

// A sound device that has died keeps libmpv waiting for ever. So it gets the order to stop and a moment of time; when
// it does not come to rest in that time, the program ends without it.
MpvCore::~MpvCore()
{
    if (!m_handle)
        return;
    m_mpv->set_wakeup_callback(m_handle, nullptr, nullptr);
    command({"stop"}, lastSerial);
    bool isStopped = false; // Any song begun before that has been announced.
    QElapsedTimer waited;
    for (waited.start(); !(isStopped && m_isIdle) && waited.elapsed() < lastWaitMs;) {
        const mpv_event &event = *m_mpv->wait_event(m_handle, lastWaitMs / 1000.0);
        noteRest(event);
        isStopped = isStopped || (event.event_id == MPV_EVENT_COMMAND_REPLY && event.reply_userdata == lastSerial);
    }
    if (isStopped && m_isIdle)
        m_mpv->terminate_destroy(m_handle);
}

bool MpvCore::start(int hundredthsOfDecibel)
{
    if (!m_mpv->isComplete())
        return false;
    keepAlsaQuiet();
    qputenv("PULSE_PROP_application.icon_name", "kiv-mp3"); // There is no picture under libmpv's own name.
    qputenv("PULSE_PROP_media.role", "music");
    if (!qEnvironmentVariableIsSet("PIPEWIRE_DEBUG"))
        qputenv("PIPEWIRE_DEBUG", "0"); // Where it is not configured, its library says so in lines of its own.
    std::setlocale(LC_NUMERIC, "C");    // libmpv refuses to start where numbers are written with a comma.
    m_handle = m_mpv->create();
    if (!m_handle)
        return false;
    for (const Option &option : options)
        setOption(option.name, option.value);
    for (const Option &option : farAhead)
        setOption(option.name, option.value);
    chooseOutput();
    const QByteArray formats = '%' + QByteArray::number(qstrlen(songFormats)) + '%' + songFormats; // Holds commas.
    setOption("demuxer-lavf-o", "protocol_whitelist=file,format_whitelist=" + formats);
    setOption("volume", QByteArray::number(mpvVolume(hundredthsOfDecibel), 'g', 17));
    m_mpv->set_wakeup_callback(m_handle, wake, this);
    m_mpv->observe_property(m_handle, noSerial, "current-ao", MPV_FORMAT_STRING);
    return m_mpv->initialize(m_handle) >= 0;
}

void MpvCore::setOption(const char *name, const QByteArray &value)
{
    m_mpv->set_option_string(m_handle, name, value.constData());
}

// KIV_MP3_SOUND is for tests: "null" plays in real time to nobody, "pcm:" and a path records all songs in a row.
void MpvCore::chooseOutput()
{
    const QByteArray wanted = qgetenv("KIV_MP3_SOUND");
    m_isSilenceWanted = wanted == "null";
    if (wanted.startsWith("pcm:")) {
        for (const Option &option : recordedOutput)
            setOption(option.name, option.value);
        m_isRecording = true;
        setOption("ao-pcm-file", wanted.mid(4));
    } else {
        setOption("ao", m_isSilenceWanted ? "null" : deviceOutputs);
    }
}

void MpvCore::command(const QList<QByteArray> &words, quint64 serial)
{
    QList<const char *> pointers;
    for (const QByteArray &word : words)
        pointers += word.constData();
    pointers += nullptr;
    m_mpv->command_async(m_handle, serial, pointers.data());
}

void MpvCore::load(const QByteArray &path, const QByteArray &title, quint64 serial)
{
    command({"set", "force-media-title", title});
    setFarAhead(true);
    command({"loadfile", path, "replace"}, serial);
}

void MpvCore::setPause(bool on)
{
    int flag = on;
    m_mpv->set_property_async(m_handle, 0, "pause", MPV_FORMAT_FLAG, &flag);
}

bool MpvCore::setVolume(int hundredthsOfDecibel)
{
    double volume = mpvVolume(hundredthsOfDecibel);
    m_mpv->set_property_async(m_handle, noSerial, "volume", MPV_FORMAT_DOUBLE, &volume);
    if (!m_isDeviceOpen || !m_isFarAhead || m_isRecording)
        return false;
    setFarAhead(false);
    reopenDevice();
    return true;
}

void MpvCore::reopenDevice()
{
    command({"ao-reload"});
}

// Counts for the device that is opened next.
void MpvCore::setFarAhead(bool on)
{
    if (std::exchange(m_isFarAhead, on) == on)
        return;
    for (const Option &option : on ? farAhead : nearAhead)
        command({"set", option.name, option.value});
}

void MpvCore::stop()
{
    command({"stop"});
}

void MpvCore::seek(double seconds)
{
    command({"seek", QByteArray::number(seconds, 'f', 6), "absolute+exact"});
}

void MpvCore::askPosition(quint64 serial)
{
    m_mpv->get_property_async(m_handle, serial, "audio-pts", MPV_FORMAT_DOUBLE);
}

void MpvCore::askDuration(quint64 serial)
{
    m_mpv->get_property_async(m_handle, serial, "duration", MPV_FORMAT_DOUBLE);
}

// Called on a thread of libmpv's.
void MpvCore::wake(void *core)
{
    QMetaObject::invokeMethod(static_cast<MpvCore *>(core), &MpvCore::drain, Qt::QueuedConnection);
}

// A listener may let events run, as an error box does; what an event holds is gone then. What libmpv says meanwhile is
// not to wait for the listener's return, so each event is delivered from the event loop.
void MpvCore::drain()
{
    const mpv_event *event = m_mpv->wait_event(m_handle, 0);
    if (event->event_id == MPV_EVENT_NONE)
        return;
    wake(this);
    deliver(*event);
}

// Between songs libmpv is idle and its sound device closed.
void MpvCore::noteRest(const mpv_event &event)
{
    if (event.event_id == MPV_EVENT_START_FILE)
        m_isIdle = false;
    if (event.event_id != MPV_EVENT_IDLE)
        return;
    m_isIdle = true;
    m_isDeviceOpen = false;
}

void MpvCore::deliver(const mpv_event &event)
{
    noteRest(event);
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        if (event.reply_userdata != noSerial)
            m_listener.songAccepted(event.reply_userdata, entryIn(event));
        break;
    case MPV_EVENT_START_FILE:
        m_listener.songStarted(static_cast<mpv_event_start_file *>(event.data)->playlist_entry_id);
        break;
    case MPV_EVENT_FILE_LOADED:
        m_listener.songOpened();
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        m_isDeviceOpen = true;
        m_listener.soundStarted();
        break;
    case MPV_EVENT_END_FILE:
        deliverEnd(*static_cast<mpv_event_end_file *>(event.data));
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        deliverAnswer(event);
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        noteDevice(*static_cast<mpv_event_property *>(event.data));
        break;
    default:
        break;
    }
}

void MpvCore::deliverEnd(const mpv_event_end_file &end)
{
    if (end.reason == MPV_END_FILE_REASON_EOF)
        m_listener.songEnded(end.playlist_entry_id);
    else if (end.reason == MPV_END_FILE_REASON_ERROR)
        m_listener.songFailed(end.playlist_entry_id, failureOf(end.error),
                              QString::fromUtf8(m_mpv->error_string(end.error)));
}

void MpvCore::deliverAnswer(const mpv_event &event)
{
    const auto &property = *static_cast<mpv_event_property *>(event.data);
    const bool isKnown = event.error >= 0;
    if (qstrcmp(property.name, "duration") == 0) {
        m_listener.durationAnswered(event.reply_userdata, isKnown ? *static_cast<double *>(property.data) : 0);
    } else if (qstrcmp(property.name, "audio-pts") == 0) {
        if (isKnown)
            m_listener.positionAnswered(event.reply_userdata, *static_cast<double *>(property.data));
    }
}

// An output was opened. Between songs there is none, which says nothing about the device.
void MpvCore::noteDevice(const mpv_event_property &output)
{
    if (output.format != MPV_FORMAT_STRING || m_isSilenceWanted)
        return;
    const bool isMissing = qstrcmp(*static_cast<char **>(output.data), "null") == 0;
    if (std::exchange(m_isDeviceMissing, isMissing) != isMissing)
        m_listener.deviceChanged();
}
