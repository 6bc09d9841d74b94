// SPDX-License-Identifier: MIT
// Stand-ins for the program's surroundings: scripted answers, files in memory, a clock that is set.
#pragma once

#include "platform/platform.h"

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace support {

struct Message {
    std::string title;
    std::string text;
    platform::Icon icon;
    friend bool operator==(const Message&, const Message&) = default;
};

/// Turns call back into the test, as a user would who clicks meanwhile.
struct Events : platform::Events {
    std::function<void()> onTurn;
    std::function<void()> onPaint;
    int turns = 0;
    int paints = 0;

    void turn() override {
        ++turns;
        if (onTurn)
            onTurn();
    }
    void paint() override {
        ++paints;
        if (onPaint)
            onPaint();
    }
};

struct Dialogs : platform::Dialogs {
    std::optional<std::string> chosen; ///< answer to the file dialogs, nothing for a cancel
    std::string answer; ///< answer to a prompt
    std::vector<std::string> asked; ///< every question, its parts joined by "|"
    std::vector<Message> messages;
    std::function<void()> onQuestion; ///< while a file dialog is open
    std::function<void()> onMessage;

    std::optional<std::string> ask(std::string_view kind, std::string_view title,
        const platform::Filter& f, const auto& last) {
        asked.push_back(std::string(kind) + "|" + std::string(title) + "|" + std::string(f.name)
            + "|" + std::string(f.pattern) + "|" + last);
        if (onQuestion)
            onQuestion();
        return chosen;
    }
    std::optional<std::string> openFile(std::string_view title, const platform::Filter& filter,
        const platform::FileName& last) override {
        return ask("open", title, filter, last);
    }
    std::optional<std::string> saveFile(std::string_view title, const platform::Filter& filter,
        const platform::FileName& last) override {
        return ask("save", title, filter, last);
    }
    void message(std::string_view title, std::string_view text, platform::Icon icon) override {
        messages.push_back({std::string(title), std::string(text), icon});
        if (onMessage)
            onMessage();
    }
    std::string prompt(std::string_view title, std::string_view text) override {
        asked.push_back(std::string(title) + "|" + std::string(text));
        return answer;
    }
};

/// Files in memory that fail where the test wants them to.
struct Files : platform::Files {
    static constexpr std::size_t Never = static_cast<std::size_t>(-1);

    std::map<std::string, std::string> content;
    std::size_t blockSize = Never; ///< most bytes that one read gives
    std::size_t failAtByte = Never; ///< reading fails there
    std::size_t failAtWrite = Never; ///< this write fails, counted from 0
    bool failCommit = false;
    std::error_code openError;
    std::error_code failure = std::make_error_code(std::errc::io_error);
    std::size_t writes = 0;
    int openReaders = 0;

    struct Reader : platform::Reader {
        Reader(Files& of, const std::string& bytes) : files(of), text(bytes) {
            ++files.openReaders;
        }
        ~Reader() override { --files.openReaders; }
        Reader(const Reader&) = delete;
        Reader& operator=(const Reader&) = delete;
        std::size_t read(std::span<char> block, std::error_code& error) override {
            if (at == files.failAtByte) {
                error = files.failure;
                return 0;
            }
            const std::size_t end = std::min(text.size(), files.failAtByte);
            const std::size_t count = std::min({block.size(), files.blockSize, end - at});
            std::copy_n(text.data() + at, count, block.data());
            at += count;
            return count;
        }
        Files& files;
        const std::string& text;
        std::size_t at = 0;
    };
    struct Writer : platform::Writer {
        Writer(Files& of, std::string file) : files(of), name(std::move(file)) { }
        std::error_code write(std::string_view bytes) override {
            if (files.writes++ == files.failAtWrite)
                return files.failure;
            aside += bytes;
            return {};
        }
        std::error_code commit() override {
            if (files.failCommit)
                return files.failure;
            files.content[name] = aside;
            return {};
        }
        Files& files;
        std::string name;
        std::string aside;
    };

    std::unique_ptr<platform::Reader> open(
        const platform::FileName& name, std::error_code& error) override {
        error = openError;
        if (!error && !content.contains(name))
            error = std::make_error_code(std::errc::no_such_file_or_directory);
        return error ? nullptr : std::make_unique<Reader>(*this, content[name]);
    }
    std::unique_ptr<platform::Writer> create(
        const platform::FileName& name, std::error_code& error) override {
        error = openError;
        return error ? nullptr : std::make_unique<Writer>(*this, name);
    }
    bool exists(const platform::FileName& name) override { return content.contains(name); }
    platform::FileName programFolder() override { return "/programm"; }
};

/// Every look moves the time on by `step`; 16 ms makes every turn due, 0 stands still.
struct Clock : platform::Clock {
    std::chrono::nanoseconds time{};
    std::chrono::nanoseconds step = std::chrono::milliseconds(16);
    std::function<double()> midnight;

    std::chrono::nanoseconds now() override { return time += step; }
    std::chrono::nanoseconds coarse() override { return now(); }
    double secondsSinceMidnight() override { return midnight(); }
};

struct Media : platform::MediaDevice {
    std::vector<std::string> commands;

    void open(const platform::FileName& file, std::string_view deviceType) override {
        commands.push_back("open " + file + " " + std::string(deviceType));
    }
    void play(std::int32_t position) override {
        commands.push_back("play " + std::to_string(position));
    }
    void stop() override { commands.emplace_back("stop"); }
};

/// A registry of "key|value" entries; counts keys that were left open.
struct Registry : platform::Registry {
    struct Value {
        std::uint32_t type;
        std::string bytes;
    };
    std::map<std::string, Value> values;
    std::vector<std::string> opened;
    int open_ = 0;

    std::optional<Key> open(std::uint32_t root, std::string_view name) override {
        const std::string prefix = std::string(name) + "|";
        const auto found = values.lower_bound(prefix);
        if (root != 0x80000002 || found == values.end() || !found->first.starts_with(prefix))
            return std::nullopt;
        opened.emplace_back(name);
        ++open_;
        return opened.size();
    }
    std::optional<std::uint32_t> query(
        Key key, std::string_view value, std::span<char> buffer, std::size_t& size) override {
        const auto found = values.find(opened[key - 1] + "|" + std::string(value));
        if (found == values.end() || found->second.bytes.size() > buffer.size())
            return std::nullopt;
        size = found->second.bytes.size();
        std::copy(found->second.bytes.begin(), found->second.bytes.end(), buffer.begin());
        return found->second.type;
    }
    void close(Key) override { --open_; }
};

struct Processes : platform::Processes {
    std::vector<std::string> started;
    bool canStart = true;
    std::uint64_t left = std::numeric_limits<std::uint64_t>::max();
    int ends = 0;

    bool start(const platform::FileName& program) override {
        started.push_back(program);
        return canStart;
    }
    std::uint64_t memoryLeft() override { return left; }
    void end() override { ++ends; }
};

} // namespace support
