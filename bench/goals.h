// SPDX-License-Identifier: MIT
// The parts of the benchmark. Each measures and reports by itself.
#pragma once

#include "harness.h"

#include <QApplication>

#include <cstdint>
#include <string>

namespace bench {

/// How much of everything is measured.
struct Extent {
    std::int64_t longest = 100 * Million; ///< the longest permanence
};

// Of the main program, in the order in which they run.
void coreGoals(Report& report);
void gridGoals(Report& report);
void liveGoals(Report& report, const Extent& extent);
void memoryGoals(Report& report, const Extent& extent);
void growth(Report& report, const Extent& extent);
void startUp(Report& report);
void peers(Report& report, const Extent& extent);

// Processes of their own, which the parts above start. Each gives the exit code.

/// Starts the program, loads a file, waits for its last row on screen and tells memory and count.
int loadOnce(QApplication& application, const std::string& file);
/// As loadOnce, with the toolkit's table widget in place of the program.
int fillTableWidget(const std::string& file);
/// Draws more coups than memory is given and goes on.
int reachMemoryLimit(QApplication& application);
/// Tells when splash and main window were painted.
int timeStart(QApplication& application);
/// Lets one source take in `count` coups, for tools that count instructions.
int single(const std::string& source, std::int64_t count);

} // namespace bench
