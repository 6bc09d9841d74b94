// SPDX-License-Identifier: MIT
// Other processes.
#include "process.h"

#include "harness.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

[[noreturn]] void become(const std::vector<std::string>& command, int output) {
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    ::dup2(output, STDOUT_FILENO);
    ::execvp(arguments[0], arguments.data());
    std::perror(arguments[0]);
    ::_exit(127);
}

/// The command run by a small process that writes the command's peak in KiB to `report`. The system
/// counts a process's peak from before it became the command, so one started from here would be
/// said to be as large as this one.
std::vector<std::string> measured(const std::vector<std::string>& command, int report) {
    std::vector<std::string> all{"/usr/bin/time", "--quiet", "--format=%M",
        "--output=/proc/self/fd/" + std::to_string(report)};
    all.insert(all.end(), command.begin(), command.end());
    return all;
}

std::string readAll(int descriptor) {
    std::string all;
    std::array<char, 4096> block{};
    for (ssize_t got = 0; (got = ::read(descriptor, block.data(), block.size())) > 0;)
        all.append(block.data(), static_cast<std::size_t>(got));
    return all;
}

} // namespace

Outcome run(const std::vector<std::string>& command) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return {};
    const int report = ::memfd_create("peak", 0);
    const double begin = wallSeconds();
    const pid_t child = ::fork();
    if (child == 0)
        become(measured(command, report), pipe[1]);
    ::close(pipe[1]);
    Outcome outcome;
    outcome.output = readAll(pipe[0]);
    ::close(pipe[0]);
    int status = 0;
    rusage usage{};
    const bool ended = child >= 0 && ::wait4(child, &status, 0, &usage) == child;
    const std::string peak = readAll(report);
    ::close(report);
    if (!ended)
        return outcome;
    outcome.good = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    outcome.cpu = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    outcome.wall = wallSeconds() - begin;
    outcome.peak = std::strtod(peak.c_str(), nullptr) / 1024;
    return outcome;
}

std::vector<std::string> self(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{std::filesystem::read_symlink("/proc/self/exe").string()};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

Outcome runSelf(const std::vector<std::string>& arguments) {
    return run(self(arguments));
}

bool installed(const std::string& command) {
    std::stringstream folders(std::getenv("PATH") ? std::getenv("PATH") : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (::access((folder + '/' + command).c_str(), X_OK) == 0)
            return true;
    return false;
}

double valueOf(const Outcome& outcome, const std::string& name) {
    const std::size_t at = outcome.output.find(name + '=');
    return at == std::string::npos
        ? -1
        : std::strtod(outcome.output.c_str() + at + name.size() + 1, nullptr);
}

double ownMemory(const std::string& field) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(field + ':'))
            return 1024 * std::strtod(line.c_str() + field.size() + 1, nullptr);
    return -1;
}

} // namespace bench
