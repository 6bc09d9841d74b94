// SPDX-License-Identifier: MIT
// The whole program: how long runs take under the live window, whether it answers meanwhile, how
// soon they stop, and how much memory a coup takes.
#include "data.h"
#include "desk.h"
#include "parts.h"

#include <QAbstractEventDispatcher>
#include <QPushButton>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

namespace bench {

namespace {

constexpr int CancelTrials = 40;

/// A moment on the wall and in processor time of this thread.
struct Moment {
    double wall = wallSeconds();
    double cpu = threadSeconds();
};

QMetaObject::Connection atEachTurn(const std::function<void()>& look) {
    return QObject::connect(
        QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, look);
}

void loadLive(Report& report, Desk& desk, const Data& data) {
    const auto ours = [&] {
        const double time = desk.load(data.file);
        report.check(desk.counters() == data.counts, "counts in the tableau after a live load");
        desk.press(1);
        desk.settle();
        return time;
    };
    const auto bare = [&] {
        Bare made;
        const double time = timeOf([&] { made = bareLoad(data.file); });
        report.check(made.counts == data.counts, "bare load");
        return time;
    };
    const Comparison times = interleaved(Rounds, ours, bare);
    report.ratio("load " + shortNumber(data.coups) + ", live window", times, {1.7, 1.3},
        1e9 / static_cast<double>(data.coups), "ns a coup");
}

/// Worst cases on the wall, with the same in processor time beside them.
void worst(Report& report, const QString& name, const std::vector<double>& wall,
    const std::vector<double>& cpu, double reach) {
    const auto largest
        = [](const auto& times) { return *std::max_element(times.begin(), times.end()); };
    report.goal(name, largest(wall) * 1e3, "ms", {reach, 16},
        QString::asprintf("worst of %zu runs, median %.1f; in processor time %.1f, median %.1f",
            wall.size(), median(wall) * 1e3, largest(cpu) * 1e3, median(cpu) * 1e3));
}

void gaps(Report& report, Desk& desk, const Data& data) {
    std::vector<double> wall;
    std::vector<double> cpu;
    for (int round = 0; round < Rounds; ++round) {
        Moment last;
        Moment longest{0, 0};
        int turns = 0;
        QMetaObject::Connection watch;
        const auto look = [&] {
            const Moment now;
            // Before a run's first turn the toolkit waits for the threads of the closed file
            // dialog; that is no gap of ours.
            if (turns > 0)
                longest = {std::max(longest.wall, now.wall - last.wall),
                    std::max(longest.cpu, now.cpu - last.cpu)};
            last = now;
            turns += turns > 0 || !desk.view().isEnabled() ? 1 : 0;
        };
        desk.load(data.file, [&] { watch = atEachTurn(look); });
        QObject::disconnect(watch);
        wall.push_back(longest.wall);
        cpu.push_back(longest.cpu);
        report.check(turns >= 3, "turns are given");
        desk.press(1);
        desk.settle();
    }
    worst(report, "longest gap between turns, load " + shortNumber(data.coups), wall, cpu, 20);
}

/// Presses the dialog's button some time after it has come up; gives how long the run went on.
Moment cancelOnce(const std::function<void()>& run, std::chrono::milliseconds delay) {
    std::atomic<bool> shown = false;
    std::atomic<bool> over = false;
    Moment asked;
    const pthread_t windowThread = ::pthread_self();
    const auto watch = atEachTurn([&] { shown = shown || Desk::progress() != nullptr; });
    std::thread user([&] {
        while (!shown && !over)
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        std::this_thread::sleep_for(delay);
        asked = {wallSeconds(), threadSeconds(windowThread)};
        const auto press = [] {
            if (auto* dialog = Desk::progress())
                dialog->findChild<QPushButton*>()->click();
        };
        QMetaObject::invokeMethod(qApp, press, Qt::QueuedConnection);
    });
    run();
    const Moment ended;
    over = true;
    user.join();
    QObject::disconnect(watch);
    return {ended.wall - asked.wall, ended.cpu - asked.cpu};
}

/// Cancels a run of `coups` coups again and again, `longest` milliseconds at most after its dialog
/// came.
void cancel(Report& report, Desk& desk, const QString& what, std::int64_t coups, int longest,
    const std::function<void()>& run) {
    std::uniform_int_distribution<int> delay(0, longest);
    std::mt19937 random(7);
    std::vector<double> wall;
    std::vector<double> cpu;
    for (int trial = 0; trial < CancelTrials; ++trial) {
        const Moment took = cancelOnce(run, std::chrono::milliseconds(delay(random)));
        // A run that was over before the button was pressed says nothing.
        if (desk.rows() > 0 && desk.rows() < coups) {
            wall.push_back(took.wall);
            cpu.push_back(took.cpu);
        }
        desk.settle(); // the buttons come back with the next frame
        desk.press(1);
        desk.settle();
    }
    report.check(wall.size() >= CancelTrials / 2, "enough runs were cancelled in the middle");
    if (!wall.empty())
        worst(report, "cancel until stopped, " + what + ' ' + shortNumber(coups), wall, cpu, 25);
}

struct Memory {
    double resident = 0;
    double peak = 0;
};

/// In processes of their own, all at once: they wait most of the time, and memory doesn't mind.
Memory memoryAt(Report& report, std::int64_t coups) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    const std::string command = '\'' + program + "' --load " + std::to_string(dataOf(coups).coups);
    std::vector<std::FILE*> processes;
    for (int round = 0; round < Rounds; ++round)
        processes.push_back(::popen(command.c_str(), "re"));
    std::vector<double> resident;
    std::vector<double> peak;
    for (std::FILE* process : processes) {
        Memory told;
        const bool read
            = process && std::fscanf(process, "%lf %lf", &told.resident, &told.peak) == 2;
        report.check(read && ::pclose(process) == 0, "the program loads " + shortNumber(coups));
        resident.push_back(told.resident);
        peak.push_back(told.peak);
    }
    return {median(resident), median(peak)};
}

/// A size in bytes that the system tells about this process.
double ownMemory(const std::string& field) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(field + ':'))
            return 1024 * std::strtod(line.c_str() + field.size() + 1, nullptr);
    return 0;
}

} // namespace

void windowGoals(Report& report, std::int64_t longest) {
    atDesk(*qApp, [&](Desk& desk) {
        const Data& data = dataOf(longest);
        loadLive(report, desk, dataOf(10 * Million));
        // A load's dialog comes when the file is read; what follows is short.
        if (longest > 10 * Million) {
            loadLive(report, desk, data);
            cancel(report, desk, "load", longest, 80, [&] { desk.startLoad(data.file); });
        }
        cancel(report, desk, "draw", 50 * Million, 200, [&] { desk.startDraw(50 * Million); });
        gaps(report, desk, data);
    });
}

void memoryGoals(Report& report) {
    const Memory one = memoryAt(report, Million);
    const Memory ten = memoryAt(report, 10 * Million);
    const auto goal = [&](const char* name, double less, double more) {
        report.goal(name, (more - less) / (9.0 * Million), "bytes", {3, 2.1},
            QString::asprintf("%.1f MiB at 1 M, %.1f MiB at 10 M", less / 0x1p20, more / 0x1p20));
    };
    goal("resident bytes per coup, 1 M to 10 M", one.resident, ten.resident);
    goal("peak bytes per coup, 1 M to 10 M", one.peak, ten.peak);
}

int loadOnce(QApplication& application, std::int64_t coups) {
    bool good = false;
    atDesk(application, [&](Desk& desk) {
        desk.load(dataOf(coups).file);
        desk.settle();
        good = desk.counters() == dataOf(coups).counts && desk.rows() == coups;
        std::printf("%.0f %.0f\n", ownMemory("VmRSS"), ownMemory("VmHWM"));
    });
    return good ? 0 : 1;
}

} // namespace bench
