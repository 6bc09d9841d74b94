// SPDX-License-Identifier: MIT
// What the program asks of its surroundings, in standard types. desktop/ fulfils these for real,
// the tests with stand-ins.
#pragma once

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// File names are UTF-8 everywhere.
using FileName = std::string;

/// The window system's events.
class Events {
public:
    virtual ~Events() = default;
    /// Serves all waiting events: input, timers, painting.
    virtual void turn() = 0;
    /// Serves painting, holds all input back.
    virtual void paint() = 0;
};

/// Which picture a message box carries.
enum class Icon { None, Critical };

/// One entry of a file dialog's filter.
struct Filter {
    std::string_view name; ///< shown, e.g. "Textdateien (*.txt)"
    std::string_view pattern; ///< e.g. "*.txt"
};

/// Modal questions. Each call returns when the user has answered.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    /// The chosen file, or nothing after a cancel. `last` is the name to start at, or empty.
    virtual std::optional<FileName> openFile(
        std::string_view title, const Filter& filter, const FileName& last)
        = 0;
    /// As openFile, for a file to write; asks before it lets an existing file be chosen.
    virtual std::optional<FileName> saveFile(
        std::string_view title, const Filter& filter, const FileName& last)
        = 0;
    /// A message with an OK button.
    virtual void message(std::string_view title, std::string_view text, Icon icon) = 0;
    /// A line of text, empty after a cancel.
    virtual std::string prompt(std::string_view title, std::string_view text) = 0;
};

/// A file open for reading, from its beginning.
class Reader {
public:
    virtual ~Reader() = default;
    /// Reads up to `block.size()` bytes and returns how many; 0 is the end of the file. On failure
    /// `error` is set.
    virtual std::size_t read(std::span<char> block, std::error_code& error) = 0;
};

/// A file being written aside. The file of that name stays the old one unless commit() succeeds.
class Writer {
public:
    virtual ~Writer() = default;
    virtual std::error_code write(std::string_view bytes) = 0;
    virtual std::error_code commit() = 0;
};

class Files {
public:
    virtual ~Files() = default;
    /// Opens a regular file. Anything else (folder, pipe, device) is an error, never a wait.
    virtual std::unique_ptr<Reader> open(const FileName& name, std::error_code& error) = 0;
    /// Prepares a new file or a replacement of a regular, writable one.
    virtual std::unique_ptr<Writer> create(const FileName& name, std::error_code& error) = 0;
    virtual bool exists(const FileName& name) = 0;
    /// The folder of the program file, without a separator at its end.
    virtual FileName programFolder() = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    /// A time that never goes back, to measure spans with.
    virtual std::chrono::nanoseconds now() = 0;
    /// The system's time by a clock that is quick to read but may stand still for milliseconds.
    virtual std::chrono::nanoseconds coarse() = 0;
    /// The local seconds since midnight with their fraction.
    virtual double secondsSinceMidnight() = 0;
};

/// One media device. Every operation may fail silently, and none makes the caller wait.
class MediaDevice {
public:
    virtual ~MediaDevice() = default;
    /// Opens `file` as `deviceType`, e.g. "Sequencer". Refused while a file is open.
    virtual void open(const FileName& file, std::string_view deviceType) = 0;
    /// Plays from a position in milliseconds.
    virtual void play(std::int32_t position) = 0;
    virtual void stop() = 0;
};

/// Types of registry values.
enum class ValueType : std::uint32_t { Text = 1, Number = 4 };

/// The registry, read only: keys below the machine's root, each with named values.
class Registry {
public:
    using Key = std::uintptr_t;

    virtual ~Registry() = default;
    /// Opens a key below `root`; nothing if there is none or it can't be opened.
    virtual std::optional<Key> open(std::uint32_t root, std::string_view name) = 0;
    /// Copies a value's bytes to `buffer` and returns its type; nothing if there is none or the
    /// buffer is too small. `size` becomes the number of bytes.
    virtual std::optional<std::uint32_t> query(
        Key key, std::string_view value, std::span<char> buffer, std::size_t& size)
        = 0;
    virtual void close(Key key) = 0;
};

class Processes {
public:
    virtual ~Processes() = default;
    /// Starts another program by its path and doesn't wait for it. False if it can't be started.
    virtual bool start(const FileName& program) = 0;
    /// The bytes of memory that the machine can still give, as far as it reports.
    virtual std::uint64_t memoryLeft() { return std::numeric_limits<std::uint64_t>::max(); }
    /// Ends this process as soon as the event being served has been served.
    virtual void end() = 0;
};

/// All of the surroundings.
struct Platform {
    Events& events;
    Dialogs& dialogs;
    Files& files;
    Clock& clock;
    MediaDevice& media;
    Registry& registry;
    Processes& processes;
};

} // namespace platform
