// SPDX-License-Identifier: MIT
// Plays through the system's media control interface, which is told what to do in words.
#include "desktop/windows/mci_device.h"

#include "desktop/windows/wide.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace desktop {

struct MciDevice::Queue {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::wstring> commands;
    bool closed = false;

    void serve(const Send& send) {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return closed || !commands.empty(); });
            if (closed)
                return;
            const std::wstring command = std::move(commands.front());
            commands.pop_front();
            lock.unlock();
            send(command);
            lock.lock();
        }
    }
};

namespace {

/// The file as a word of a command: by its short name, which holds no blanks, and where it has
/// none, in quotes.
std::wstring word(const platform::FileName& file) {
    std::wstring name = wide(file);
    std::replace(name.begin(), name.end(), L'/', L'\\');
    std::vector<wchar_t> shorter(::GetShortPathNameW(name.c_str(), nullptr, 0));
    const auto size = static_cast<DWORD>(shorter.size());
    const DWORD length = ::GetShortPathNameW(name.c_str(), shorter.data(), size);
    if (length > 0 && length < size)
        name.assign(shorter.data(), length);
    return name.find(L' ') == std::wstring::npos ? name : L'"' + name + L'"';
}

} // namespace

MciDevice::MciDevice(Send send) : send_(std::move(send)) { }

MciDevice::~MciDevice() {
    if (!queue_)
        return;
    const std::scoped_lock lock(queue_->mutex);
    queue_->closed = true;
    queue_->changed.notify_one();
}

void MciDevice::open(const platform::FileName& file, std::string_view deviceType) {
    post({L"open " + word(file) + L" type " + wide(deviceType) + L" alias TempMCI",
        L"set TempMCI time format milliseconds"});
}

void MciDevice::play(std::int32_t position) {
    post({L"play TempMCI from " + std::to_wstring(position), L"put TempMCI destination"});
}

void MciDevice::stop() {
    post({L"stop TempMCI"});
}

void MciDevice::post(std::initializer_list<std::wstring> commands) try {
    if (!queue_) {
        auto queue = std::make_shared<Queue>();
        std::thread([queue, send = send_] { queue->serve(send); }).detach();
        queue_ = std::move(queue);
    }
    const std::scoped_lock lock(queue_->mutex);
    queue_->commands.insert(queue_->commands.end(), commands);
    queue_->changed.notify_one();
} catch (const std::exception&) {
    // No thread, no memory: silence.
}

} // namespace desktop
