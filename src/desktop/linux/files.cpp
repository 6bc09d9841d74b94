// SPDX-License-Identifier: MIT
// Reading files without ever waiting for one, and replacing them so that no moment loses data.
#include "desktop/system.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace desktop {

namespace {

constexpr int MostLinks = 40;
constexpr int MostNames = 100;
constexpr mode_t AnyWritePermission = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t AllPermissions = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t OwnerPermissions = S_IRWXU;
constexpr mode_t NewFile = 0666; // less what the user's mask takes away
constexpr mode_t Private = 0600;

std::error_code failure(int error) {
    switch (error) {
    case EPERM:
    case EROFS:
        return std::make_error_code(std::errc::permission_denied);
    case EDQUOT:
        return std::make_error_code(std::errc::no_space_on_device);
    default:
        return {error, std::generic_category()};
    }
}

/// Repeats a system call that a signal has interrupted.
template <typename Call>
auto unbroken(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// An open file or folder.
class Descriptor {
public:
    explicit Descriptor(int value = -1) : value_(value) { }
    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) { }
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Descriptor() { close(); }

    bool valid() const { return value_ >= 0; }
    int get() const { return value_; }
    /// Some file systems report only here that a write has failed. EINTR from close still closes.
    std::error_code close() {
        const int value = std::exchange(value_, -1);
        return value >= 0 && ::close(value) != 0 && errno != EINTR ? failure(errno)
                                                                   : std::error_code{};
    }

private:
    int value_;
};

/// Whether this is a file that can be read and replaced like any other.
std::error_code regular(const struct stat& status) {
    if (S_ISDIR(status.st_mode))
        return std::make_error_code(std::errc::is_a_directory);
    return S_ISREG(status.st_mode) ? std::error_code{}
                                   : std::make_error_code(std::errc::not_supported);
}

class FileReader final : public platform::Reader {
public:
    explicit FileReader(Descriptor file) : file_(std::move(file)) { }

    std::size_t read(std::span<char> block, std::error_code& error) override {
        error.clear();
        const ssize_t count
            = unbroken([&] { return ::read(file_.get(), block.data(), block.size()); });
        if (count < 0) {
            error = failure(errno);
            return 0;
        }
        return static_cast<std::size_t>(count);
    }

private:
    Descriptor file_;
};

/// Where a name leads once all symbolic links at its end have been followed.
std::filesystem::path destination(const platform::FileName& name, std::error_code& error) {
    std::filesystem::path path(name);
    for (int link = 0; link < MostLinks; ++link) {
        std::error_code noLink;
        const std::filesystem::path next = std::filesystem::read_symlink(path, noLink);
        if (noLink)
            return path;
        path = path.parent_path() / next;
    }
    error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return path;
}

/// A short name of our own, so that a target with the longest possible name has room beside it.
std::string temporaryName() {
    // It needn't be secret: a name that is taken is never followed or opened, only skipped.
    const auto time = std::chrono::steady_clock::now().time_since_epoch().count();
    const std::uint64_t number
        = (static_cast<std::uint64_t>(::getpid()) << 40) ^ static_cast<std::uint64_t>(time);
    std::array<char, 16> digits{};
    auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return ".kestrelwood-" + std::string(digits.data(), end);
}

/// Writes a temporary file in the target's folder, which commit() renames to the target.
/// Names are looked up in the open folder, so that a renamed folder does no harm.
class SafeWriter final : public platform::Writer {
public:
    ~SafeWriter() override { discard(); }

    std::error_code prepare(const std::filesystem::path& target) {
        name_ = target.filename().string();
        if (name_.empty()) {
            return std::make_error_code(
                target.empty() ? std::errc::no_such_file_or_directory : std::errc::is_a_directory);
        }
        const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
        folder_ = Descriptor(
            unbroken([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
        if (!folder_.valid())
            return failure(errno);
        struct stat old { };
        if (::fstatat(folder_.get(), name_.c_str(), &old, AT_SYMLINK_NOFOLLOW) != 0)
            return errno == ENOENT ? createTemporary(nullptr) : failure(errno);
        if (const std::error_code error = replaceable(old))
            return error;
        return createTemporary(&old);
    }

    std::error_code write(std::string_view bytes) override {
        while (!error_ && !bytes.empty()) {
            const ssize_t count
                = unbroken([&] { return ::write(file_.get(), bytes.data(), bytes.size()); });
            if (count < 0) {
                error_ = failure(errno);
            } else {
                bytes.remove_prefix(static_cast<std::size_t>(count));
            }
        }
        return error_;
    }

    std::error_code commit() override {
        if (!error_ && unbroken([&] { return ::fsync(file_.get()); }) != 0) {
            error_ = failure(errno);
        }
        if (!error_)
            error_ = file_.close();
        if (!error_
            && ::renameat(folder_.get(), temporary_.c_str(), folder_.get(), name_.c_str()) != 0) {
            error_ = failure(errno);
        }
        if (error_) {
            discard();
            return error_;
        }
        temporary_.clear();
        // The new file is in its place. A failed folder sync can't be undone.
        unbroken([&] { return ::fsync(folder_.get()); });
        error_ = std::make_error_code(std::errc::bad_file_descriptor);
        return {};
    }

private:
    /// The missing write permission counts for root as well: such a file is meant to stay.
    std::error_code replaceable(const struct stat& old) const {
        if (const std::error_code error = regular(old))
            return error;
        if ((old.st_mode & AnyWritePermission) == 0)
            return std::make_error_code(std::errc::permission_denied);
        return ::faccessat(folder_.get(), name_.c_str(), W_OK, AT_EACCESS) == 0 ? std::error_code{}
                                                                                : failure(errno);
    }

    /// `old` is the file to be replaced, or null for a new one.
    std::error_code createTemporary(const struct stat* old) {
        const mode_t mode = old != nullptr ? Private : NewFile;
        for (int attempt = 0; attempt < MostNames && !file_.valid(); ++attempt) {
            std::string name = temporaryName();
            file_ = Descriptor(unbroken([&] {
                return ::openat(folder_.get(), name.c_str(),
                    O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
            }));
            if (file_.valid()) {
                temporary_ = std::move(name);
            } else if (errno != EEXIST) {
                return failure(errno);
            }
        }
        if (!file_.valid())
            return std::make_error_code(std::errc::file_exists);
        if (old != nullptr)
            adopt(*old);
        return {};
    }

    /// Copies the owner and the permissions of the old file to the new one as far as possible: only
    /// root may give a file away, and not every file system knows permissions. What fails here
    /// leaves a file that fewer may read, never more.
    void adopt(const struct stat& old) const {
        constexpr auto SameOwner = static_cast<uid_t>(-1);
        if (::fchown(file_.get(), old.st_uid, old.st_gid) == 0
            || ::fchown(file_.get(), SameOwner, old.st_gid) == 0) {
            ::fchmod(file_.get(), old.st_mode & AllPermissions);
        } else {
            ::fchmod(file_.get(), old.st_mode & OwnerPermissions);
        }
    }

    void discard() {
        file_.close();
        if (!temporary_.empty()) {
            ::unlinkat(folder_.get(), temporary_.c_str(), 0);
            temporary_.clear();
        }
    }

    Descriptor folder_;
    Descriptor file_;
    std::string name_; ///< of the target, in its folder
    std::string temporary_; ///< of the file being written; empty once there is none
    std::error_code error_; ///< the first failure, which every later call repeats
};

} // namespace

namespace system {

std::unique_ptr<platform::Reader> readFile(const platform::FileName& name, std::error_code& error) {
    struct stat status { };
    // Looked at before it is opened, because opening alone can wake a device.
    if (::stat(name.c_str(), &status) != 0) {
        error = failure(errno);
        return nullptr;
    }
    error = regular(status);
    if (error)
        return nullptr;
    Descriptor file(unbroken(
        [&] { return ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    // Looked at again, because another file may have got this name in between.
    if (!file.valid() || ::fstat(file.get(), &status) != 0) {
        error = failure(errno);
        return nullptr;
    }
    error = regular(status);
    return error ? nullptr : std::make_unique<FileReader>(std::move(file));
}

std::unique_ptr<platform::Writer> replaceFile(
    const platform::FileName& name, std::error_code& error) {
    std::signal(SIGXFSZ, SIG_IGN); // a write beyond the process's own size limit is but an error
    error.clear();
    const std::filesystem::path target = destination(name, error);
    auto writer = std::make_unique<SafeWriter>();
    if (!error)
        error = writer->prepare(target);
    if (error)
        return nullptr;
    return writer;
}

} // namespace system

} // namespace desktop
