// SPDX-License-Identifier: MIT
// Plays a MIDI melody on a thread of its own, in silence whatever goes wrong.
#include "desktop/linux/sound_device.h"

#include "desktop/system.h"

#include <QLibrary>

#include <fluidsynth.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace desktop {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds LongestGoodbye{500};
constexpr milliseconds RestCheck{500};
constexpr std::size_t LargestMelody = std::size_t{4} << 20U;
constexpr double Gain = 0.5;
constexpr int PeriodSize = 512; ///< frames; three of them are 35 ms
constexpr int Periods = 3;
constexpr milliseconds BufferTime{36};
constexpr milliseconds FadeStep{4};
constexpr int FadeSteps = 10;

template <auto Delete>
struct Deleter {
    template <typename Object>
    void operator()(Object* object) const {
        Delete(object);
    }
};
using Settings = std::unique_ptr<fluid_settings_t, Deleter<delete_fluid_settings>>;
using Synth = std::unique_ptr<fluid_synth_t, Deleter<delete_fluid_synth>>;
using Player = std::unique_ptr<fluid_player_t, Deleter<delete_fluid_player>>;
using Driver = std::unique_ptr<fluid_audio_driver_t, Deleter<delete_fluid_audio_driver>>;

void keepQuiet(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
    const char* /*format*/, ...) { }

/// Both libraries write to the standard error stream by themselves when there is no device.
void silenceLibraries() {
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(level, nullptr, nullptr);
    using SetHandler = int (*)(decltype(&keepQuiet));
    // ALSA comes with FluidSynth or not at all, so it isn't linked but looked for.
    const auto setHandler = reinterpret_cast<SetHandler>(
        QLibrary::resolve(QStringLiteral("asound"), 2, "snd_lib_error_set_handler"));
    if (setHandler != nullptr)
        setHandler(keepQuiet);
}

/// A failure means silence, nothing worse.
template <typename Work>
void silently(Work work) {
    try {
        work();
    } catch (const std::exception&) { }
}

std::string contents(const platform::FileName& name) {
    std::error_code error;
    const std::unique_ptr<platform::Reader> reader = system::readFile(name, error);
    std::string bytes;
    std::array<char, 4096> block{};
    while (reader && !error && bytes.size() <= LargestMelody) {
        const std::size_t count = reader->read(block, error);
        if (count == 0)
            break;
        bytes.append(block.data(), count);
    }
    return error || bytes.size() > LargestMelody ? std::string() : bytes;
}

/// Whether this is a whole soundfont, as far as its head shows. FluidSynth tries other libraries on
/// a file that it can't read itself, and those don't keep quiet.
bool isSoundfont(const std::string& name) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(name, error);
    std::array<char, 12> head{};
    if (error || !std::ifstream(name, std::ios::binary).read(head.data(), head.size()))
        return false;
    const auto byte
        = [&head](std::size_t at) { return std::uintmax_t{static_cast<unsigned char>(head[at])}; };
    const std::uintmax_t rest = byte(4) | byte(5) << 8U | byte(6) << 16U | byte(7) << 24U;
    const std::string_view text(head.data(), head.size());
    return text.starts_with("RIFF") && text.ends_with("sfbk") && rest + 8 <= size;
}

Player newPlayer(const Synth& synth, const std::string& melody) {
    Player player(new_fluid_player(synth.get()));
    if (player && fluid_player_add_mem(player.get(), melody.data(), melody.size()) != FLUID_OK)
        player.reset();
    return player;
}

/// The melody's tick at a time in milliseconds, nothing after its end. Tempo may change within a
/// melody, so it is played up to there, quicker than heard: at a low rate and without a font.
std::optional<int> tickAt(const std::string& melody, std::int32_t position) {
    constexpr int Rate = 8000;
    constexpr int Frames = 64; // what the player works on at a time
    const Settings settings(new_fluid_settings());
    fluid_settings_setnum(settings.get(), "synth.sample-rate", Rate);
    fluid_settings_setint(settings.get(), "synth.reverb.active", 0);
    fluid_settings_setint(settings.get(), "synth.chorus.active", 0);
    const Synth synth(new_fluid_synth(settings.get()));
    if (!synth)
        return std::nullopt;
    const Player player = newPlayer(synth, melody);
    if (!player || fluid_player_play(player.get()) != FLUID_OK)
        return std::nullopt;
    std::array<float, Frames> left{};
    std::array<float, Frames> right{};
    const std::int64_t blocks = std::int64_t{position} * Rate / 1000 / Frames;
    for (std::int64_t block = 0; block < blocks; ++block)
        if (fluid_synth_write_float(synth.get(), Frames, left.data(), 0, 1, right.data(), 0, 1)
                != FLUID_OK
            || fluid_player_get_status(player.get()) != FLUID_PLAYER_PLAYING)
            return std::nullopt;
    return fluid_player_get_current_tick(player.get());
}

/// The melody, the synthesizer and the way to the loudspeakers. Used by one thread.
class Sequencer {
public:
    explicit Sequencer(SoundSetup setup) : setup_(std::move(setup)) { }
    ~Sequencer() { stop(); }

    /// Gets ready to play; true if it is. Once ready, it stays so with its first melody.
    bool open(const platform::FileName& file) {
        if (synth_)
            return true;
        melody_ = contents(file);
        if (melody_.empty())
            return false;
        settings_ = newSettings();
        Synth synth(new_fluid_synth(settings_.get()));
        const auto loads = [&synth](const std::string& font) {
            return isSoundfont(font)
                && fluid_synth_sfload(synth.get(), font.c_str(), 1) != FLUID_FAILED;
        };
        if (synth && std::any_of(setup_.soundfonts.begin(), setup_.soundfonts.end(), loads))
            synth_ = std::move(synth);
        return synth_ != nullptr;
    }

    /// From `position` in milliseconds; silent if there is no way to the loudspeakers now.
    void play(std::int32_t position) {
        stop();
        Player player = newPlayer(synth_, melody_);
        const std::optional<int> tick = position > 0 ? tickAt(melody_, position) : 0;
        if (!player || !tick || fluid_player_seek(player.get(), *tick) != FLUID_OK)
            return;
        driver_ = firstDriver();
        if (!driver_)
            return;
        player_ = std::move(player);
        fluid_player_play(player_.get());
    }

    void stop() {
        if (driver_)
            fade();
        // The player may only go when nothing asks the synthesizer for sound any more.
        driver_.reset();
        player_.reset();
        if (!synth_)
            return;
        fluid_synth_system_reset(synth_.get());
        setLoudness(1);
    }

    bool busy() const { return driver_ != nullptr; }

    /// To be called now and then: frees the sound output once the melody is over. By itself
    /// the player lets two seconds pass for the last notes to fade.
    void rest() {
        if (fluid_player_get_status(player_.get()) != FLUID_PLAYER_PLAYING)
            stop();
    }

private:
    /// Sound that breaks off is heard as a click. The silence at the end is to outlast what the
    /// driver has still to play, for that goes with it.
    void fade() {
        for (int step = FadeSteps - 1; step >= 0; --step) {
            setLoudness(static_cast<double>(step) / FadeSteps);
            std::this_thread::sleep_for(step > 0 ? FadeStep : BufferTime);
        }
    }

    /// Of the notes and of their echo, which would go on without them. Only the notes' loudness
    /// glides from step to step, so the last steps are the smallest.
    void setLoudness(double part) {
        const auto setLevel = [&](const char* name, auto set) {
            double level = 0;
            fluid_settings_getnum_default(settings_.get(), name, &level);
            set(synth_.get(), -1, level * part * part);
        };
        setLevel("synth.reverb.level", fluid_synth_set_reverb_group_level);
        setLevel("synth.chorus.level", fluid_synth_set_chorus_group_level);
        fluid_synth_set_gain(synth_.get(), static_cast<float>(Gain * part * part));
    }

    Settings newSettings() const {
        Settings settings(new_fluid_settings());
        fluid_settings_setint(settings.get(), "synth.dynamic-sample-loading", 1);
        fluid_settings_setnum(settings.get(), "synth.gain", Gain);
        fluid_settings_setint(settings.get(), "audio.period-size", PeriodSize);
        fluid_settings_setint(settings.get(), "audio.periods", Periods);
        // A melody has no need to go before other work.
        fluid_settings_setint(settings.get(), "audio.realtime-prio", 0);
        if (!setup_.waveFile.empty())
            fluid_settings_setstr(settings.get(), "audio.file.name", setup_.waveFile.c_str());
        return settings;
    }

    Driver firstDriver() const {
        for (const std::string& name : setup_.drivers) {
            if (fluid_settings_setstr(settings_.get(), "audio.driver", name.c_str()) != FLUID_OK)
                continue;
            if (Driver driver{new_fluid_audio_driver(settings_.get(), synth_.get())})
                return driver;
        }
        return nullptr;
    }

    SoundSetup setup_;
    std::string melody_;
    Settings settings_;
    Synth synth_; ///< set once a melody is open
    Player player_;
    Driver driver_; ///< set while sound is being made
};

} // namespace

/// What is wanted of the sequencer, and the thread's work of bringing it about. The thread shares
/// it with the device, so that a thread stuck in a library can be left behind.
class SoundDevice::Worker {
public:
    void open(const platform::FileName& file) {
        change([&file](Wanted& wanted) {
            if (wanted.file.empty())
                wanted.file = file;
        });
    }

    void play(std::int32_t position) {
        change([position](Wanted& wanted) {
            if (!wanted.file.empty())
                wanted.position = std::max(position, 0);
        });
    }

    void stop() {
        change([](Wanted& wanted) { wanted.position.reset(); });
    }

    void run(const SoundSetup& setup) {
        silently([&] {
            silenceLibraries();
            Sequencer sequencer(setup);
            serve(sequencer);
        });
        const std::scoped_lock lock(mutex_);
        ended_ = true;
        changed_.notify_all();
    }

    /// Asks the thread to end and waits a moment for it; false if it is still at work then.
    bool end() {
        std::unique_lock lock(mutex_);
        quit_ = true;
        changed_.notify_all();
        return changed_.wait_for(lock, LongestGoodbye, [this] { return ended_; });
    }

private:
    struct Wanted {
        platform::FileName file;
        std::optional<std::int32_t> position; ///< where to play from; nothing for silence
        std::uint64_t commands = 0;
    };

    template <typename Change>
    void change(Change change) {
        const std::scoped_lock lock(mutex_);
        change(wanted_);
        ++wanted_.commands;
        changed_.notify_all();
    }

    void serve(Sequencer& sequencer) {
        std::uint64_t served = 0;
        const auto due = [&] { return quit_ || wanted_.commands != served; };
        std::unique_lock lock(mutex_);
        while (!quit_) {
            if (sequencer.busy() && !changed_.wait_for(lock, RestCheck, due)) {
                lock.unlock();
                sequencer.rest();
                lock.lock();
                continue;
            }
            changed_.wait(lock, due);
            if (quit_)
                return;
            const Wanted wanted = wanted_;
            served = wanted.commands;
            lock.unlock();
            const bool isOpen = sequencer.open(wanted.file);
            lock.lock();
            if (!isOpen)
                wanted_ = {{}, {}, wanted_.commands};
            // Whoever has spoken in the meantime is heard instead.
            if (!isOpen || due())
                continue;
            lock.unlock();
            if (wanted.position)
                sequencer.play(*wanted.position);
            else
                sequencer.stop();
            lock.lock();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    Wanted wanted_;
    bool quit_ = false;
    bool ended_ = false;
};

SoundSetup SoundSetup::ofThisComputer() {
    SoundSetup setup{
        {"/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
            "/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2"},
        {"pulseaudio", "alsa"}, {}};
    std::error_code error;
    std::vector<std::string> others;
    for (std::filesystem::directory_iterator file("/usr/share/soundfonts", error), end;
         !error && file != end; file.increment(error))
        others.push_back(file->path().string());
    std::sort(others.begin(), others.end());
    setup.soundfonts.insert(setup.soundfonts.end(), others.begin(), others.end());
    return setup;
}

SoundDevice::SoundDevice(SoundSetup setup) : setup_(std::move(setup)) { }

SoundDevice::~SoundDevice() {
    if (!worker_)
        return;
    if (worker_->end())
        thread_.join();
    else
        thread_.detach();
}

void SoundDevice::open(const platform::FileName& file, std::string_view deviceType) {
    if (deviceType != "Sequencer")
        return;
    silently([&] {
        if (!worker_) {
            auto worker = std::make_shared<Worker>();
            thread_ = std::thread([worker, setup = setup_] { worker->run(setup); });
            worker_ = std::move(worker);
        }
        worker_->open(file);
    });
}

void SoundDevice::play(std::int32_t position) {
    if (worker_)
        worker_->play(position);
}

void SoundDevice::stop() {
    if (worker_)
        worker_->stop();
}

std::unique_ptr<platform::MediaDevice> system::newSoundDevice() {
    return std::make_unique<SoundDevice>(SoundSetup::ofThisComputer());
}

} // namespace desktop
