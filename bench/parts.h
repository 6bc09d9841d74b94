// SPDX-License-Identifier: MIT
// The parts of the benchmark. Each measures and reports by itself.
#pragma once

#include "harness.h"

#include <QApplication>

#include <string>

namespace bench {

// In the order in which they run; `longest` is the length of the longest permanence.
void logicGoals(Report& report);
void gridGoals(Report& report);
void windowGoals(Report& report, std::int64_t longest);
void memoryGoals(Report& report);
void growth(Report& report, std::int64_t longest);

/// What each grid action takes on a permanence of this length, in words.
QString actionTimes(std::int64_t coups);

// Processes of their own. Each gives the exit code.

/// Starts the program, loads a file, waits for its last row on screen and tells its memory.
int loadOnce(QApplication& application, std::int64_t coups);
/// Lets one source take in `coups` coups, for tools that count instructions.
int single(const std::string& name, std::int64_t coups);

} // namespace bench
