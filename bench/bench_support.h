#pragma once
// What the benchmarks share: services that answer and start nothing, a plain whole-file read,
// and the timing of contenders that take turns.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/platform/desktop.h"
#include "core/platform/dialogs.h"
#include "core/platform/progress.h"
#include "core/platform/services.h"
#include "core/platform/system.h"
#include "core/settings/settings_record.h"

namespace rakeyard::bench {

using Clock = std::chrono::steady_clock;

class OkDialogs : public Dialogs {
public:
    void report(std::string_view, Icon, std::string_view) override {}
    Answer ask(std::string_view, Buttons buttons, Icon,
                         Answer, std::string_view) override {
        return buttons == Buttons::YesNo ? Answer::Yes : Answer::Ok;
    }
};

class NoDesktop : public Desktop {
public:
    bool moveToTrash(const std::string&) override { return false; }
    bool startProgram(const std::string&, const std::vector<std::string>&) override {
        return false;
    }
    void openUrl(std::string_view) override {}
};

// The services a bench runs with over its file system: dialogs that answer, no progress shown,
// no desktop.
struct QuietServices {
    explicit QuietServices(FileSystem& fs) : services{fs, dialogs, progress, desktop} {}
    QuietServices(const QuietServices&) = delete;
    QuietServices& operator=(const QuietServices&) = delete;
    OkDialogs dialogs;
    NoProgress progress;
    NoDesktop desktop;
    Services services;
};

// The plain read: one open, one look at the size, as few reads as the system allows.
inline bool readWhole(const std::string& path, std::vector<char>& bytes) {
    sys::ReadOnlyFile file;
    if (!file.open(path)) return false;
    const std::optional<std::uintmax_t> size = file.regularFileSize();
    if (!size) return false;
    bytes.resize(static_cast<std::size_t>(*size));
    bytes.resize(file.readInto(bytes.data(), bytes.size()).value_or(0));
    return true;
}

// The floor of a run that read and sized these files: each file read whole and each size
// looked up, as often as listed. Returns the bytes, so that no work can be left out.
inline std::size_t readAndSize(const std::vector<std::string>& read,
                               const std::vector<std::string>& sized) {
    std::vector<char> bytes;
    std::size_t total = 0;
    for (const std::string& path : read)
        if (readWhole(path, bytes)) total += bytes.size();
    for (const std::string& path : sized) {
        bool missing = false;
        total += static_cast<std::size_t>(sys::regularFileSize(path, missing).value_or(0));
    }
    return total;
}

// Each path once, at its first place.
inline void keepFirst(std::vector<std::string>& paths) {
    std::set<std::string> seen;
    std::erase_if(paths, [&seen](const std::string& path) { return !seen.insert(path).second; });
}

// The paths of an installation at msts as the settings give them, the program's folder at home,
// an editor set so that runs offer their reports.
inline void setBenchPaths(PathGlobals& paths, const std::string& msts, const std::string& home) {
    paths.programFolder = home;
    paths.mstsPath = msts;
    paths.trainsetPath = msts + "/TRAINS/TRAINSET";
    paths.consistsPath = msts + "/TRAINS/CONSISTS";
    paths.soundPath = msts + "/SOUND";
    paths.editorPath = "/bin/true";
    paths.engineFilter = "All";
    paths.wagonFilter = "All";
}

using sys::cpuSeconds;
using sys::peakMegabytes;

// The wall and CPU times of each run of one contender, and the peak memory after it.
struct Timings {
    Timings(std::string name, std::function<void()> work)
        : name(std::move(name)), work(std::move(work)) {}
    std::string name;
    std::function<void()> work;
    std::vector<double> wall{};
    std::vector<double> cpu{};
    long peak = 0;  // the process's, after the first run

    void run() {
        const double cpuBefore = cpuSeconds();
        const Clock::time_point start = Clock::now();
        work();
        wall.push_back(std::chrono::duration<double>(Clock::now() - start).count());
        cpu.push_back(cpuSeconds() - cpuBefore);
        if (wall.size() == 1) peak = peakMegabytes();
    }
};

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Runs the contenders in turn, runs times each, then prints each one's median wall and CPU time
// with its ratios to the first contender, the floor.
inline void runAndPrint(std::vector<Timings>& contenders, int runs, bool withPeak) {
    for (int i = 0; i < runs; ++i)
        for (Timings& contender : contenders)
            contender.run();
    const double floorWall = median(contenders[0].wall);
    const double floorCpu = median(contenders[0].cpu);
    std::printf("median of %d runs each, taking turns:\n", runs);
    for (const Timings& c : contenders) {
        const double wall = median(c.wall);
        const double cpu = median(c.cpu);
        std::printf("  %-16s wall %.3f s (%.2fx)  cpu %.3f s (%.2fx)", c.name.c_str(), wall,
                    wall / floorWall, cpu, cpu / floorCpu);
        if (withPeak) std::printf("  peak %ld MB", c.peak);
        std::printf("\n");
    }
}

}  // namespace rakeyard::bench
