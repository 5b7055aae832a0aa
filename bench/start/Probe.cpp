// Times the start of programs on an X display: from the fork to the first window on the screen and
// to its first painted pixels, with the peak memory and the processor time of the first seconds.
//
//   tessaril_start_probe ROUNDS NAME COMMAND [NAME COMMAND]...
//
// A round starts each program once, in a home of its own that is empty, and ends it by a signal.
// Prints the medians of all rounds, one program a line: name, milliseconds to the window, to its
// paint, KiB, milliseconds of processor time.

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds Watched(2000);   // over which processor time is taken
constexpr milliseconds Patience(10000); // for the first paint
constexpr int LeastSide = 100;          // of a window that counts as the program's own
constexpr uint16_t LookWidth = 200;     // the corner in which a paint is looked for
constexpr uint16_t LookHeight = 60;

struct Figures
{
    double mapped = 0;
    double painted = 0;
    double memory = 0;
    double processor = 0;
};

struct Program
{
    std::string name;
    std::string command;
    std::vector<Figures> rounds;
};

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

class Display
{
public:
    Display()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection)) {
            std::fputs("tessaril_start_probe: no display\n", stderr);
            std::exit(2);
        }
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(m_connection);
    }
    ~Display() { xcb_disconnect(m_connection); }
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    void forgetEvents()
    {
        while (xcb_generic_event_t *const event = xcb_poll_for_event(m_connection))
            std::free(event);
    }

    /// The first window of a program that is mapped until @p end.
    std::optional<xcb_window_t> waitForWindow(Clock::time_point end)
    {
        while (Clock::now() < end) {
            xcb_generic_event_t *const event = xcb_poll_for_event(m_connection);
            if (!event) {
                pollfd wait{xcb_get_file_descriptor(m_connection), POLLIN, 0};
                poll(&wait, 1, 50);
                continue;
            }
            const bool isMap = (event->response_type & 0x7F) == XCB_MAP_NOTIFY;
            const auto *const map = reinterpret_cast<const xcb_map_notify_event_t *>(event);
            const xcb_window_t window = isMap && !map->override_redirect ? map->window : 0;
            std::free(event);
            if (window && isLarge(window))
                return window;
        }
        return {};
    }

    /// Waits until the corner of the window holds more than one colour.
    bool waitForPaint(xcb_window_t window, Clock::time_point end)
    {
        while (Clock::now() < end) {
            if (isPainted(window))
                return true;
            std::this_thread::sleep_for(std::chrono::microseconds(500));
        }
        return false;
    }

private:
    bool isLarge(xcb_window_t window)
    {
        const auto cookie = xcb_get_geometry(m_connection, window);
        xcb_get_geometry_reply_t *const reply =
            xcb_get_geometry_reply(m_connection, cookie, nullptr);
        const bool large = reply && reply->width >= LeastSide && reply->height >= LeastSide;
        std::free(reply);
        return large;
    }

    bool isPainted(xcb_window_t window)
    {
        const auto cookie = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                                          LookWidth, LookHeight, ~0U);
        xcb_get_image_reply_t *const reply = xcb_get_image_reply(m_connection, cookie, nullptr);
        if (!reply)
            return false;
        const uint8_t *const bytes = xcb_get_image_data(reply);
        const int length = xcb_get_image_data_length(reply);
        const bool painted = length > 4 && std::memcmp(bytes, bytes + 4, length - 4) != 0;
        std::free(reply);
        return painted;
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
};

pid_t start(const std::string &command, const std::string &home)
{
    const pid_t child = fork();
    if (child != 0)
        return child;
    setpgid(0, 0);
    setenv("HOME", home.c_str(), 1);
    for (const char *const name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        unsetenv(name);
    if (!std::freopen("/dev/null", "w", stderr) || !std::freopen("/dev/null", "w", stdout))
        _exit(126);
    execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
    _exit(127);
}

/// The peak of resident memory, in KiB.
double peakMemory(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:"))
            return std::atof(line.c_str() + std::strlen("VmHWM:"));
    }
    return 0;
}

/// The time that all threads ran, in milliseconds.
double processorTime(pid_t process)
{
    double nanoseconds = 0;
    std::error_code gone;
    const std::string tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto &task : std::filesystem::directory_iterator(tasks, gone)) {
        double ran = 0;
        std::ifstream(task.path() / "schedstat") >> ran;
        nanoseconds += ran;
    }
    return nanoseconds / 1e6;
}

std::optional<Figures> startOnce(Display &display, const std::string &command)
{
    std::string home = (std::filesystem::temp_directory_path() / "start-XXXXXX").string();
    if (!mkdtemp(home.data()))
        return {};
    display.forgetEvents();

    Figures figures;
    const Clock::time_point begin = Clock::now();
    const pid_t process = start(command, home);
    const auto window = display.waitForWindow(begin + Patience);
    figures.mapped = millisecondsSince(begin);
    const bool painted = window && display.waitForPaint(*window, begin + Patience);
    figures.painted = millisecondsSince(begin);
    std::this_thread::sleep_until(begin + Watched);
    figures.memory = peakMemory(process);
    figures.processor = processorTime(process);

    kill(-process, SIGKILL);
    waitpid(process, nullptr, 0);
    std::filesystem::remove_all(home);
    if (!painted)
        return {};
    return figures;
}

double median(std::vector<Figures> rounds, double Figures::*figure)
{
    const auto middle = rounds.begin() + static_cast<std::ptrdiff_t>(rounds.size() / 2);
    std::nth_element(
        rounds.begin(), middle, rounds.end(),
        [figure](const Figures &a, const Figures &b) { return a.*figure < b.*figure; });
    return *middle.*figure;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 4 || argc % 2 != 0) {
        std::fputs("tessaril_start_probe ROUNDS NAME COMMAND [NAME COMMAND]...\n", stderr);
        return 2;
    }
    std::vector<Program> programs;
    for (int i = 2; i + 1 < argc; i += 2)
        programs.push_back({argv[i], argv[i + 1], {}});

    Display display;
    for (const Program &program : programs)
        startOnce(display, program.command); // warms the cache
    for (int round = 0; round < std::atoi(argv[1]); ++round) {
        for (Program &program : programs) {
            if (const auto figures = startOnce(display, program.command))
                program.rounds.push_back(*figures);
        }
    }
    for (const Program &program : programs) {
        if (program.rounds.empty()) {
            std::printf("%s failed\n", program.name.c_str());
            continue;
        }
        std::printf(
            "%s %.1f %.1f %.0f %.1f\n", program.name.c_str(),
            median(program.rounds, &Figures::mapped), median(program.rounds, &Figures::painted),
            median(program.rounds, &Figures::memory), median(program.rounds, &Figures::processor));
    }
    return 0;
}
