// Starts a program and tells how long it takes until its main window is on the screen: milliseconds from exec to the
// window's being mapped, and the CPU time used by then. The program goes on; its process number is printed too.
//
// Usage: first_window WIDTHxHEIGHT program [argument...]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <xcb/xcb.h>

namespace
{
struct Size {
    int width = 0;
    int height = 0;
};

template<class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply *reply)
{
    return {reply, &std::free};
}

bool hasSize(xcb_connection_t *display, xcb_window_t window, Size size)
{
    const auto place = owned(xcb_get_geometry_reply(display, xcb_get_geometry(display, window), nullptr));
    return place && place->width == size.width && place->height == size.height;
}

void watchRoot(xcb_connection_t *display)
{
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(display, screen->root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(display);
}

void waitForWindow(xcb_connection_t *display, Size size)
{
    while (const auto event = owned(xcb_wait_for_event(display))) {
        if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY)
            continue;
        const auto *mapped = reinterpret_cast<const xcb_map_notify_event_t *>(event.get());
        if (hasSize(display, mapped->window, size))
            return;
    }
}

// User and system time of all threads in milliseconds.
double cpuMs(pid_t process)
{
    clockid_t clock = {};
    timespec used = {};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &used) != 0)
        return -1;
    return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}
} // namespace

int main(int argc, char *argv[])
{
    Size size;
    if (argc < 3 || std::sscanf(argv[1], "%dx%d", &size.width, &size.height) != 2)
        return 2;
    xcb_connection_t *display = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(display))
        return 2;
    watchRoot(display);
    const auto start = std::chrono::steady_clock::now();
    const pid_t process = fork();
    if (process == 0) {
        const int quiet = open("/dev/null", O_WRONLY);
        dup2(quiet, STDOUT_FILENO); // Else a reader of this program's output waits for the player's end.
        dup2(quiet, STDERR_FILENO);
        execv(argv[2], argv + 2);
        _exit(127);
    }
    waitForWindow(display, size);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    std::printf("%.1f %.1f %d\n", taken.count(), cpuMs(process), process);
    xcb_disconnect(display);
    return 0;
}
