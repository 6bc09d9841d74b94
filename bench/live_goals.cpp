// SPDX-License-Identifier: MIT
// Runs with the whole window alive: how long they take, whether it answers, how soon they stop.
#include "data.h"
#include "desk.h"
#include "goals.h"
#include "landing.h"

#include <QAbstractEventDispatcher>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <random>
#include <thread>

namespace bench {

namespace {

constexpr int CancelTrials = 40;

/// Looks at every turn of the event loop from a run's first one on. (Before that the toolkit waits
/// for the threads of the closed file dialog; that is no gap of ours.)
class TurnWatch {
public:
    explicit TurnWatch(const QWidget& view)
        : view_(view), last_(wallSeconds()), lastCpu_(threadSeconds()) {
        connection_ = QObject::connect(QAbstractEventDispatcher::instance(),
            &QAbstractEventDispatcher::awake, [this] { turn(); });
    }
    ~TurnWatch() { QObject::disconnect(connection_); }
    TurnWatch(const TurnWatch&) = delete;
    TurnWatch& operator=(const TurnWatch&) = delete;

    double longestGap() const { return longest_; }
    /// In processor time: without what other programs on the machine took meanwhile.
    double longestWork() const { return longestWork_; }
    int turns() const { return turns_; }
    /// Different places that the progress bar stood at, and whether it ever went back.
    int steps() const { return steps_; }
    bool wentBack() const { return wentBack_; }

private:
    void turn() {
        const double now = wallSeconds();
        const double cpu = threadSeconds();
        longestWork_ = std::max(longestWork_, cpu - lastCpu_);
        if (turns_ > 0)
            longest_ = std::max(longest_, now - last_);
        last_ = now;
        lastCpu_ = cpu;
        turns_ += turns_ > 0 || !view_.isEnabled() ? 1 : 0;
        if (const auto* dialog = Desk::progress())
            see(dialog->findChild<QProgressBar*>()->value());
    }

    void see(int value) {
        wentBack_ = wentBack_ || value < value_;
        steps_ += value != value_ ? 1 : 0;
        value_ = value;
    }

    const QWidget& view_; ///< closed to input while a run lasts
    QMetaObject::Connection connection_;
    double last_;
    double lastCpu_;
    double longest_ = 0;
    double longestWork_ = 0;
    int turns_ = 0;
    int steps_ = 0;
    int value_ = 0;
    bool wentBack_ = false;
};

/// Asks the window's thread something again and again, as input would, and notes the waits.
class Questions {
public:
    Questions() : thread_([this] { ask(); }) { }
    ~Questions() { end(); }
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    /// All waits, in seconds.
    const std::vector<double>& end() {
        stop_ = true;
        while (thread_.joinable() && !ended_)
            QCoreApplication::processEvents();
        if (thread_.joinable())
            thread_.join();
        return waits_;
    }

private:
    void ask() {
        while (!stop_) {
            const double asked = wallSeconds();
            QMetaObject::invokeMethod(
                qApp, [] {}, Qt::BlockingQueuedConnection);
            waits_.push_back(wallSeconds() - asked);
            std::this_thread::sleep_for(std::chrono::milliseconds(3));
        }
        ended_ = true;
    }

    std::vector<double> waits_;
    std::atomic<bool> stop_ = false;
    std::atomic<bool> ended_ = false;
    std::thread thread_;
};

void loadLive(Report& report, Desk& desk, const Data& data) {
    std::vector<double> walls;
    const auto ours = [&] {
        const RunTimes times = desk.load(data.file);
        walls.push_back(times.wall);
        report.check(desk.counters() == data.counts, "counts in the tableau after a live load");
        desk.press(1);
        desk.settle();
        return times.cpu;
    };
    std::vector<double> bareWalls;
    const auto bare = [&] {
        Bare made;
        const double begin = wallSeconds();
        const double time = timeOf([&] { made = bareLoad(data.file); });
        bareWalls.push_back(wallSeconds() - begin);
        report.check(made.counts == data.counts, "bare load");
        return time;
    };
    const Comparison times = interleaved(Rounds, ours, bare);
    const double nano = 1e9 / static_cast<double>(data.coups);
    report.goal({"load " + shortNumber(data.coups) + ", live window", times.ratio(), "x", 5, 2,
        text("%.2f against %.2f ns a coup; %.0f against %.0f ms on the wall", times.ours * nano,
            times.theirs * nano, median(walls) * 1e3, median(bareWalls) * 1e3)});
}

void watchLoad(Report& report, Desk& desk, const Data& data) {
    std::vector<double> gaps;
    std::vector<double> work;
    std::vector<double> waits;
    int turns = 0;
    for (int round = 0; round < Rounds; ++round) {
        Questions questions;
        std::optional<TurnWatch> watch;
        desk.load(data.file, [&] { watch.emplace(desk.view()); });
        gaps.push_back(watch->longestGap() * 1e3);
        work.push_back(watch->longestWork() * 1e3);
        turns += watch->turns();
        report.check(watch->turns() >= 3 && watch->steps() >= 3 && !watch->wentBack(),
            "turns are given, and the progress bar moves on");
        watch.reset();
        waits.push_back(largest(questions.end()) * 1e3);
        if (round + 1 < Rounds)
            desk.press(1);
        desk.settle();
    }
    report.goal(
        {"longest gap between turns, load " + shortNumber(data.coups), largest(gaps), "ms", 40, 20,
            text("worst of %d runs, median %.1f; in processor time %.1f, median %.1f; %d turns; "
                 "longest wait for an answer %.1f",
                Rounds, median(gaps), largest(work), median(work), turns, largest(waits))});
}

/// Presses the dialog's button some time after it has come up; gives how long the run went on.
/// `start` starts the run and calls its argument at the moment the run has ended.
RunTimes cancelOnce(const std::function<void(const std::function<void()>&)>& start,
    std::chrono::milliseconds delay) {
    std::atomic<bool> shown = false;
    std::atomic<bool> over = false;
    std::atomic<double> asked = 0;
    std::atomic<double> askedCpu = 0;
    const pthread_t windowThread = ::pthread_self();
    const auto watch = QObject::connect(QAbstractEventDispatcher::instance(),
        &QAbstractEventDispatcher::awake, [&] { shown = shown || Desk::progress() != nullptr; });
    std::thread user([&] {
        while (!shown && !over)
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        std::this_thread::sleep_for(delay);
        askedCpu = threadSeconds(windowThread);
        asked = wallSeconds();
        QMetaObject::invokeMethod(
            qApp,
            [] {
                if (auto* dialog = Desk::progress())
                    dialog->findChild<QPushButton*>()->click();
            },
            Qt::QueuedConnection);
    });
    RunTimes took;
    start([&] {
        took = {threadSeconds() - askedCpu.load(), wallSeconds() - asked.load()};
        over = true;
    });
    user.join();
    QObject::disconnect(watch);
    return took;
}

/// Cancels a run of `coups` coups 40 times, `longest` milliseconds at most after its dialog came.
void cancel(Report& report, Desk& desk, const std::string& what, std::int64_t coups, int longest,
    const std::function<void(const std::function<void()>&)>& start) {
    std::uniform_int_distribution<int> delay(0, longest);
    std::mt19937 random(7);
    std::vector<double> delays;
    std::vector<double> work;
    for (int trial = 0; trial < CancelTrials; ++trial) {
        const RunTimes took = cancelOnce(start, std::chrono::milliseconds(delay(random)));
        // A run that was over before the button was pressed says nothing.
        if (desk.rows() > 0 && desk.rows() < coups) {
            delays.push_back(took.wall * 1e3);
            work.push_back(took.cpu * 1e3);
        }
        desk.settle(); // the buttons come back with the next frame
        desk.press(1);
        desk.settle();
    }
    report.check(delays.size() >= CancelTrials / 2, "enough runs were cancelled in the middle");
    if (!delays.empty())
        report.goal({"cancel asked until stopped, " + what, largest(delays), "ms", 50, 25,
            text("worst of %zu runs, median %.1f; in processor time %.1f, median %.1f",
                delays.size(), median(delays), largest(work), median(work))});
}

} // namespace

void liveGoals(Report& report, const Extent& extent) {
    report.section("The whole program, its window alive ("
        + QGuiApplication::platformName().toStdString() + ")");
    atDesk(*qApp, [&](Desk& desk) {
        loadLive(report, desk, dataOf(10 * Million));
        const Data longest = dataOf(extent.longest);
        if (extent.longest > 10 * Million)
            loadLive(report, desk, longest);
        // A load's dialog comes when the file is read; what follows is short.
        if (extent.longest > 10 * Million)
            cancel(report, desk, "load " + shortNumber(longest.coups), longest.coups, 80,
                [&](const auto& ended) { desk.loadInPart(longest.file, ended); });
        cancel(report, desk, "draw 10 M", 10 * Million, 200,
            [&](const auto& ended) { desk.drawInPart(10 * Million, ended); });
        watchLoad(report, desk, longest);
        landing(report, desk);
    });
}

} // namespace bench
