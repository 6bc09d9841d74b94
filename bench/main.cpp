// SPDX-License-Identifier: MIT
// Runs the benchmark, or one of the processes that it is made of.
#include "goals.h"
#include "look/style.h"
#include "process.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

namespace {

using bench::Million;

constexpr double MemoryForLongest = 3.0 * 1024 * 1024 * 1024;

double freeMemory() {
    double kibibytes = 0;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        std::fopen("/proc/meminfo", "r"), &std::fclose);
    std::array<char, 128> line{};
    while (file && std::fgets(line.data(), line.size(), file.get()))
        if (std::sscanf(line.data(), "MemAvailable: %lf", &kibibytes) == 1)
            break;
    return 1024 * kibibytes;
}

/// `only` names one part; empty for all of them.
int measure(bool brief, const std::string& only) {
    bench::Report report;
    bench::Extent extent;
    if (brief)
        extent.longest = 10 * Million;
    else if (freeMemory() < MemoryForLongest) {
        report.line("Too little free memory for 100 M coups; stopping at 10 M.");
        extent.longest = 10 * Million;
    }
    struct Part {
        const char* name;
        std::function<void()> run;
        bool inBrief;
    };
    const std::array parts{
        Part{"logik", [&] { bench::coreGoals(report); }, true},
        Part{"gitter", [&] { bench::gridGoals(report); }, true},
        Part{"fenster", [&] { bench::liveGoals(report, extent); }, true},
        Part{"speicher", [&] { bench::memoryGoals(report, extent); }, true},
        Part{"start", [&] { bench::startUp(report); }, true},
        Part{"wachstum", [&] { bench::growth(report, extent); }, true},
        Part{"andere", [&] { bench::peers(report, extent); }, false},
    };
    for (const Part& part : parts)
        if (only.empty() ? part.inBrief || !brief : only == part.name)
            part.run();
    return report.close();
}

} // namespace

int main(int argc, char* argv[]) {
    const std::string mode = argc > 1 ? argv[1] : "";
    const std::string argument = argc > 2 ? argv[2] : "";
    if (mode == "--einmal" && argc == 4)
        return bench::single(argument, std::atoll(argv[3]));
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kestrelwood"));
    look::applyStyle(application);
    if (mode == "--laden")
        return bench::loadOnce(application, argument);
    if (mode == "--tabelle")
        return bench::fillTableWidget(argument);
    if (mode == "--speichergrenze")
        return bench::reachMemoryLimit(application);
    if (mode == "--start")
        return bench::timeStart(application);
    if (mode.empty() || mode == "--kurz" || mode == "--teil")
        return measure(mode == "--kurz", mode == "--teil" ? argument : "");
    std::fprintf(stderr,
        "usage: kestrelwood_bench [--kurz]\n"
        "       kestrelwood_bench --teil logik|gitter|fenster|speicher|start|"
        "wachstum|andere\n"
        "       kestrelwood_bench --einmal click|undo|load|draw|resort COUNT\n");
    return 2;
}
