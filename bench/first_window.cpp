// SPDX-License-Identifier: GPL-3.0-or-later
// Starts a program and tells how long it takes until its main window is on the screen: milliseconds from exec to the
// first window that can be seen and is no splash, dialog, menu or tip, and the CPU time its processes used by then.
// The program goes on. There must be a window manager, and nobody else may open windows meanwhile.
//
// Usage: first_window SECONDS program [argument...]   Ends with 3 when there is no window after so many seconds.
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace
{
using Clock = std::chrono::steady_clock;

constexpr int smallestSide = 64; // Helper windows of toolkits are smaller.
constexpr int noWindowStatus = 3;

template<class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply *reply)
{
    return {reply, &std::free};
}

// User and system time of all threads of a process in milliseconds.
double processCpuMs(pid_t process)
{
    clockid_t clock = {};
    timespec used = {};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &used) != 0)
        return 0;
    return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

// The same of all processes below one, as far as they live.
double cpuMsBelow(pid_t process)
{
    double sum = 0;
    std::error_code gone;
    const std::filesystem::directory_iterator tasks("/proc/" + std::to_string(process) + "/task", gone);
    for (const auto &task : tasks) {
        std::ifstream children(task.path() / "children");
        for (pid_t child = 0; children >> child;)
            sum += processCpuMs(child) + cpuMsBelow(child);
    }
    return sum;
}

class Screen
{
public:
    Screen() : m_display(xcb_connect(nullptr, nullptr))
    {
        if (!isThere())
            return;
        m_typeName = atom("_NET_WM_WINDOW_TYPE");
        m_normalType = atom("_NET_WM_WINDOW_TYPE_NORMAL");
        m_splashType = atom("_NET_WM_WINDOW_TYPE_SPLASH");
        const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_display)).data;
        listen(screen->root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
    ~Screen() { xcb_disconnect(m_display); }
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    bool isThere() const { return xcb_connection_has_error(m_display) == 0; }

    // Waits for news for a tenth of a second at most. True: a window was mapped.
    bool waitForMapping()
    {
        pollfd news = {xcb_get_file_descriptor(m_display), POLLIN, 0};
        poll(&news, 1, 100);
        bool mapped = false;
        while (const auto event = owned(xcb_poll_for_event(m_display))) {
            const int type = event->response_type & 0x7F;
            mapped = mapped || type == XCB_MAP_NOTIFY;
            if (type == XCB_CREATE_NOTIFY)
                addWindow(*reinterpret_cast<const xcb_create_notify_event_t *>(event.get()));
        }
        return mapped;
    }

    bool hasMainWindow() const
    {
        return std::any_of(m_windows.begin(), m_windows.end(), [this](auto window) { return isMainWindow(window); });
    }

private:
    xcb_atom_t atom(const char *name) const
    {
        const auto length = static_cast<uint16_t>(std::strlen(name));
        return owned(xcb_intern_atom_reply(m_display, xcb_intern_atom(m_display, 0, length, name), nullptr))->atom;
    }

    void listen(xcb_window_t window, uint32_t events) const
    {
        xcb_change_window_attributes(m_display, window, XCB_CW_EVENT_MASK, &events);
        xcb_flush(m_display);
    }

    // A window manager puts it into a frame, where the screen does not tell of its mapping.
    void addWindow(const xcb_create_notify_event_t &created)
    {
        if (created.override_redirect != 0)
            return;
        m_windows.push_back(created.window);
        listen(created.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }

    // Programs give their windows a class; frames have none.
    bool isMainWindow(xcb_window_t window) const
    {
        const auto stateAsked = xcb_get_window_attributes(m_display, window);
        const auto placeAsked = xcb_get_geometry(m_display, window);
        const auto classAsked = xcb_get_property(m_display, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 1);
        const auto typesAsked = xcb_get_property(m_display, 0, window, m_typeName, XCB_ATOM_ATOM, 0, 16);
        const auto state = owned(xcb_get_window_attributes_reply(m_display, stateAsked, nullptr));
        const auto place = owned(xcb_get_geometry_reply(m_display, placeAsked, nullptr));
        const auto classes = owned(xcb_get_property_reply(m_display, classAsked, nullptr));
        const auto types = owned(xcb_get_property_reply(m_display, typesAsked, nullptr));
        return state && place && classes && types && state->map_state == XCB_MAP_STATE_VIEWABLE &&
               place->width >= smallestSide && place->height >= smallestSide &&
               xcb_get_property_value_length(classes.get()) > 0 && isMainType(*types);
    }

    bool isMainType(const xcb_get_property_reply_t &types) const
    {
        const auto *first = static_cast<const xcb_atom_t *>(xcb_get_property_value(&types));
        const auto *last = first + types.value_len;
        const bool isNormal = first == last || std::find(first, last, m_normalType) != last;
        return isNormal && std::find(first, last, m_splashType) == last;
    }

    xcb_connection_t *m_display;
    xcb_atom_t m_typeName = 0;
    xcb_atom_t m_normalType = 0;
    xcb_atom_t m_splashType = 0;
    std::vector<xcb_window_t> m_windows; // All that were created since, also those gone.
};

// Starts the program. False when it cannot be started, errno tells why.
bool start(char *command[])
{
    int failure[2] = {}; // Closed by a successful exec.
    if (pipe2(failure, O_CLOEXEC) != 0)
        return false;
    if (fork() == 0) {
        const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            dup2(nothing, stream); // Else a reader of this program's output waits for the player's end.
        execvp(command[0], command);
        const int reason = errno;
        [[maybe_unused]] const auto written = write(failure[1], &reason, sizeof(reason));
        _exit(1);
    }
    close(failure[1]);
    int reason = 0;
    const bool failed = read(failure[0], &reason, sizeof(reason)) == sizeof(reason);
    close(failure[0]);
    errno = reason;
    return !failed;
}

// Programs that go to the background are left to us, so this is true only when all have ended.
bool allEnded()
{
    pid_t ended = 0;
    do
        ended = waitpid(-1, nullptr, WNOHANG);
    while (ended > 0);
    return ended < 0;
}

int fail(const char *program, const char *what, int status)
{
    std::fprintf(stderr, "%s: %s\n", program, what);
    return status;
}
} // namespace

int main(int argc, char *argv[])
{
    Screen screen;
    if (argc < 3 || !screen.isThere())
        return fail("first_window", "seconds, a program and a screen are needed", 2);
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    const auto began = Clock::now();
    const auto deadline = began + std::chrono::seconds(std::atoi(argv[1]));
    if (!start(argv + 2))
        return fail(argv[2], std::strerror(errno), 1);
    while (Clock::now() < deadline) {
        if (screen.waitForMapping()) {
            const std::chrono::duration<double, std::milli> taken = Clock::now() - began;
            const double cpu = cpuMsBelow(getpid());
            if (screen.hasMainWindow()) {
                std::printf("%.1f %.1f\n", taken.count(), cpu);
                return 0;
            }
        } else if (allEnded()) {
            return fail(argv[2], "ended before it showed a window", 1);
        }
    }
    return fail(argv[2], "shows no window", noWindowStatus);
}
