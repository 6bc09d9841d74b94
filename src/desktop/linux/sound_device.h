// SPDX-License-Identifier: MIT
// Plays a MIDI melody on a thread of its own, in silence whatever goes wrong.
#pragma once

#include "platform/platform.h"

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace desktop {

/// What the device plays with and through; the first one of each list that works is taken.
struct SoundSetup {
    std::vector<std::string> soundfonts; ///< full paths
    std::vector<std::string> drivers; ///< FluidSynth's names
    std::string waveFile; ///< what the driver "file" writes to

    /// A small font first, because large ones take seconds to load.
    static SoundSetup ofThisComputer();
};

/// A "Sequencer" and nothing else. Commands return at once; a newer one replaces one not yet done.
/// The computer's sound output is occupied only while the melody sounds.
class SoundDevice final : public platform::MediaDevice {
public:
    explicit SoundDevice(SoundSetup setup);
    /// Ends the sound. Waits for work in progress, but no longer than half a second.
    ~SoundDevice() override;
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;

    void open(const platform::FileName& file, std::string_view deviceType) override;
    void play(std::int32_t position) override;
    void stop() override;

private:
    class Worker;
    std::shared_ptr<Worker> worker_; ///< from the first open on; shared with its thread
    std::thread thread_;
    SoundSetup setup_;
};

} // namespace desktop
