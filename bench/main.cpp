// SPDX-License-Identifier: MIT
// Runs the benchmark, or one of the processes that it is made of.
#include "data.h"
#include "look/style.h"
#include "parts.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace bench;

/// `only` names one part; empty for all of them.
int measure(std::int64_t longest, const std::string& only) {
    Report report;
    const auto wanted = [&](const char* part) { return only.empty() || only == part; };
    if (wanted("logic"))
        logicGoals(report);
    if (wanted("grid"))
        gridGoals(report);
    if (wanted("window"))
        windowGoals(report, longest);
    if (wanted("memory"))
        memoryGoals(report);
    if (wanted("growth"))
        growth(report, longest);
    return report.close();
}

} // namespace

int main(int argc, char* argv[]) {
    const std::string mode = argc > 1 ? argv[1] : "";
    const std::string argument = argc > 2 ? argv[2] : "";
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kestrelwood"));
    look::applyStyle(application);
    if (mode == "--single" && argc == 4)
        return single(argument, std::atoll(argv[3]));
    if (mode == "--load" && argc == 3)
        return loadOnce(application, std::atoll(argv[2]));
    if (mode.empty() || mode == "--brief" || (mode == "--part" && argc == 3))
        return measure((mode == "--brief" ? 10 : 100) * Million, argument);
    std::fputs("usage: kestrelwood_bench [--brief | --part logic|grid|window|memory|growth]\n"
               "       kestrelwood_bench --single SOURCE COUNT\n",
        stderr);
    return 2;
}
