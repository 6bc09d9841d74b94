// SPDX-License-Identifier: MIT
// How much memory a coup takes in the whole program, and what happens when there is none left.
#include "data.h"
#include "desk.h"
#include "goals.h"
#include "process.h"

#include <QLabel>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>
#include <numeric>

#include <sys/resource.h>

namespace bench {

namespace {

constexpr std::int64_t TooMany = 2'000 * Million;
constexpr double MemoryLeft = 64.0 * 1024 * 1024;

struct Memory {
    double resident = 0;
    double peak = 0;
};

Memory memoryAt(Report& report, std::int64_t coups) {
    std::vector<double> resident;
    std::vector<double> peak;
    const Data data = dataOf(coups);
    for (int round = 0; round < Rounds; ++round) {
        const Outcome outcome = runSelf({"--laden", data.file});
        report.check(
            outcome.good && valueOf(outcome, "seventeen") == static_cast<double>(data.counts[17]),
            "the program loads " + data.file);
        resident.push_back(valueOf(outcome, "resident"));
        peak.push_back(valueOf(outcome, "peak"));
    }
    return {median(resident), median(peak)};
}

/// Closes the message box once it has come; gives what it said.
void answerMessage(std::string& said) {
    auto* const look = new QTimer;
    QObject::connect(look, &QTimer::timeout, look, [look, &said] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        look->deleteLater();
        said = box->text().toStdString();
        box->accept();
    });
    look->start(5);
}

} // namespace

void memoryGoals(Report& report, const Extent& extent) {
    report.section("Memory of the whole program, window included");
    const Memory one = memoryAt(report, Million);
    const Memory ten = memoryAt(report, 10 * Million);
    constexpr double more = 9.0 * Million;
    const auto detail
        = text("%.1f MiB at 1 M, %.1f MiB at 10 M", one.resident / 0x1p20, ten.resident / 0x1p20);
    report.goal({"resident bytes per coup, 1 M to 10 M", (ten.resident - one.resident) / more,
        "bytes", 8, 3, detail});
    report.goal({"peak bytes per coup, 1 M to 10 M", (ten.peak - one.peak) / more, "bytes", 8, 3,
        text("%.1f MiB at 1 M, %.1f MiB at 10 M", one.peak / 0x1p20, ten.peak / 0x1p20)});
    if (extent.longest < 10 * Million)
        return;
    const Outcome outcome = runSelf({"--speichergrenze"});
    report.check(outcome.good, "the program goes on behind a memory limit");
    report.line("Memory limit on the process: " + outcome.output);
}

int loadOnce(QApplication& application, const std::string& file) {
    int code = 1;
    atDesk(application, [&](Desk& desk) {
        const RunTimes times = desk.load(file);
        desk.settle();
        const Counts counts = desk.counters();
        code
            = std::accumulate(counts.begin(), counts.end(), std::int64_t{0}) == desk.rows() ? 0 : 1;
        std::printf("rows=%lld seventeen=%lld resident=%.0f peak=%.0f cpu=%f wall=%f\n",
            static_cast<long long>(desk.rows()), static_cast<long long>(counts[17]),
            ownMemory("VmRSS"), ownMemory("VmHWM"), times.cpu, times.wall);
    });
    return code;
}

int reachMemoryLimit(QApplication& application) {
    bool good = false;
    atDesk(application, [&](Desk& desk) {
        const auto limit = static_cast<rlim_t>(ownMemory("VmSize") + MemoryLeft);
        const rlimit limits{limit, limit};
        ::setrlimit(RLIMIT_AS, &limits);
        std::string said;
        answerMessage(said);
        desk.draw(TooMany);
        desk.settle();
        const std::int64_t kept = desk.rows();
        const Counts counts = desk.counters();
        good = said.find("Arbeitsspeicher reicht nicht aus") != std::string::npos && kept > Million
            && kept < TooMany
            && std::accumulate(counts.begin(), counts.end(), std::int64_t{0}) == kept;
        desk.press(0);
        desk.settle();
        good = good && desk.rows() == kept - 1;
        desk.press(1);
        desk.draw(Million);
        desk.settle();
        good = good && desk.rows() == Million && !Desk::progress();
        std::printf("%lld coups kept with %.0f MiB to spare, counts and rows agree; undo, reset "
                    "and %lld new draws went on. Message: %s",
            static_cast<long long>(kept), MemoryLeft / 0x1p20, static_cast<long long>(Million),
            said.c_str());
    });
    return good ? 0 : 1;
}

} // namespace bench
