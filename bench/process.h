// SPDX-License-Identifier: MIT
// Other processes: started, waited for, and what they took.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct Outcome {
    bool good = false; ///< ended by itself with exit code 0
    double cpu = 0; ///< seconds, its children included
    double wall = 0;
    double peak = 0; ///< MiB of the largest process among them
    std::string output;
};

/// Runs a command to its end. Its standard output is kept, what it complains about is shown.
Outcome run(const std::vector<std::string>& command);

/// This very program with other arguments, as a command.
std::vector<std::string> self(const std::vector<std::string>& arguments);

/// Runs this very program with other arguments.
Outcome runSelf(const std::vector<std::string>& arguments);

/// Whether a command of that name is installed.
bool installed(const std::string& command);

/// The number behind "name=" in a process's output, or -1.
double valueOf(const Outcome& outcome, const std::string& name);

/// A size in bytes that the system tells about this process, e.g. "VmRSS" or "VmHWM".
double ownMemory(const std::string& field);

} // namespace bench
