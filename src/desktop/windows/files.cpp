// SPDX-License-Identifier: MIT
// Reading files without ever waiting for one, and replacing them so that no moment loses data.
#include "desktop/system.h"
#include "desktop/windows/wide.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

namespace desktop {

namespace {

constexpr int MostNames = 100;
constexpr DWORD LargestBlock = DWORD{1} << 30;
constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD QuotaExceeded = 1295; // the cross compiler's headers lack its name
constexpr DWORD KeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM
    | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

std::error_code lastError() {
    switch (const DWORD error = ::GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return std::make_error_code(std::errc::no_such_file_or_directory);
    case ERROR_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
        return std::make_error_code(std::errc::permission_denied);
    case ERROR_WRITE_PROTECT:
        return std::make_error_code(std::errc::read_only_file_system);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return std::make_error_code(std::errc::text_file_busy);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case QuotaExceeded:
        return std::make_error_code(std::errc::no_space_on_device);
    case ERROR_FILENAME_EXCED_RANGE:
        return std::make_error_code(std::errc::filename_too_long);
    default:
        return {static_cast<int>(error), std::system_category()};
    }
}

/// The last error where a call has failed, none where it hasn't.
std::error_code errorUnless(bool succeeded) {
    return succeeded ? std::error_code{} : lastError();
}

/// An open file.
class Handle {
public:
    explicit Handle(HANDLE value = INVALID_HANDLE_VALUE) : value_(value) { }
    Handle(Handle&& other) noexcept : value_(std::exchange(other.value_, INVALID_HANDLE_VALUE)) { }
    Handle& operator=(Handle&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Handle() { close(); }

    bool valid() const { return value_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return value_; }
    std::error_code close() {
        auto* const value = std::exchange(value_, INVALID_HANDLE_VALUE);
        return errorUnless(value == INVALID_HANDLE_VALUE || ::CloseHandle(value) != 0);
    }

private:
    HANDLE value_;
};

/// Opens a file of any kind but a folder or device.
Handle openRegular(const std::wstring& name, DWORD access, std::error_code& error) {
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    error = errorUnless(attributes != INVALID_FILE_ATTRIBUTES);
    if (!error && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        error = std::make_error_code(std::errc::is_a_directory);
    else if (!error && (attributes & FILE_ATTRIBUTE_READONLY) != 0 && access != GENERIC_READ)
        error = std::make_error_code(std::errc::permission_denied);
    if (error)
        return Handle();
    Handle file(::CreateFileW(name.c_str(), access, ShareAll, nullptr, OPEN_EXISTING,
        FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    error = errorUnless(file.valid());
    if (!error && ::GetFileType(file.get()) != FILE_TYPE_DISK)
        error = std::make_error_code(std::errc::not_supported);
    return file;
}

class FileReader final : public platform::Reader {
public:
    explicit FileReader(Handle file) : file_(std::move(file)) { }

    std::size_t read(std::span<char> block, std::error_code& error) override {
        const auto most = static_cast<DWORD>(std::min<std::size_t>(block.size(), LargestBlock));
        DWORD count = 0;
        error = errorUnless(::ReadFile(file_.get(), block.data(), most, &count, nullptr) != 0);
        return error ? 0 : count;
    }

private:
    Handle file_;
};

/// Writes a temporary file in the target's folder, which commit() renames to the target.
class SafeWriter final : public platform::Writer {
public:
    ~SafeWriter() override { discard(); }

    std::error_code prepare(const std::wstring& name) {
        target_ = name;
        if (!target_.has_filename()) {
            return std::make_error_code(
                name.empty() ? std::errc::no_such_file_or_directory : std::errc::is_a_directory);
        }
        Handle old;
        const std::error_code error = openOld(old);
        if (error == std::errc::no_such_file_or_directory)
            return createTemporary();
        if (error)
            return error;
        followLinks(old);
        if (const std::error_code refusal = createTemporary())
            return refusal;
        adopt(old);
        return {};
    }

    std::error_code write(std::string_view bytes) override {
        while (!error_ && !bytes.empty()) {
            const auto most = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), LargestBlock));
            DWORD count = 0;
            error_
                = errorUnless(::WriteFile(file_.get(), bytes.data(), most, &count, nullptr) != 0);
            bytes.remove_prefix(count);
        }
        return error_;
    }

    std::error_code commit() override {
        if (!error_)
            error_ = errorUnless(::FlushFileBuffers(file_.get()) != 0);
        if (!error_)
            error_ = file_.close();
        if (!error_)
            error_ = putInPlace();
        if (error_) {
            discard();
            return error_;
        }
        temporary_.clear();
        error_ = std::make_error_code(std::errc::bad_file_descriptor);
        return {};
    }

private:
    /// Opens the file to be replaced, as far as that is allowed: not one that is read-only or that
    /// another program holds on to.
    std::error_code openOld(Handle& old) const {
        std::error_code error;
        constexpr DWORD Access = GENERIC_READ | GENERIC_WRITE | DELETE;
        old = openRegular(target_.native(), Access, error);
        return error;
    }

    void followLinks(const Handle& old) {
        std::vector<wchar_t> name(::GetFinalPathNameByHandleW(old.get(), nullptr, 0, 0));
        const auto size = static_cast<DWORD>(name.size());
        const DWORD length = ::GetFinalPathNameByHandleW(old.get(), name.data(), size, 0);
        if (length > 0 && length < size)
            target_.assign(name.data(), name.data() + length);
    }

    std::error_code createTemporary() {
        for (int attempt = 0; attempt < MostNames; ++attempt) {
            temporary_ = target_.parent_path()
                / (L".kestrelwood-" + std::to_wstring(::GetCurrentProcessId()) + L'-'
                    + std::to_wstring(::GetTickCount64() + static_cast<unsigned>(attempt)));
            file_ = Handle(::CreateFileW(temporary_.c_str(), GENERIC_WRITE | WRITE_DAC, 0, nullptr,
                CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
            if (file_.valid())
                return {};
            if (::GetLastError() != ERROR_FILE_EXISTS)
                break;
        }
        const std::error_code error = lastError();
        temporary_.clear();
        return error;
    }

    /// Copies attributes, time of creation and permissions of the old file to the new one. Not
    /// every file system knows them all.
    void adopt(const Handle& old) const {
        FILE_BASIC_INFO is{};
        FILE_BASIC_INFO kept{}; // a time of 0 stays as it is
        if (::GetFileInformationByHandleEx(old.get(), FileBasicInfo, &is, sizeof is) != 0) {
            kept.CreationTime = is.CreationTime;
            kept.FileAttributes = is.FileAttributes & KeptAttributes;
            ::SetFileInformationByHandle(file_.get(), FileBasicInfo, &kept, sizeof kept);
        }
        DWORD size = 0;
        ::GetKernelObjectSecurity(old.get(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
        std::vector<char> permissions(size);
        if (::GetKernelObjectSecurity(
                old.get(), DACL_SECURITY_INFORMATION, permissions.data(), size, &size)
            != 0)
            ::SetKernelObjectSecurity(file_.get(), DACL_SECURITY_INFORMATION, permissions.data());
    }

    /// In one step, so that at no moment there is neither file.
    std::error_code putInPlace() const {
        if (::MoveFileExW(temporary_.c_str(), target_.c_str(),
                MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
            != 0)
            return {};
        const std::error_code failure = lastError();
        // The move tells only that it was refused. Most likely something has become of the target.
        Handle old;
        const std::error_code reason = openOld(old);
        return reason && reason != std::errc::no_such_file_or_directory ? reason : failure;
    }

    void discard() {
        file_.close();
        if (!temporary_.empty())
            ::DeleteFileW(temporary_.c_str());
        temporary_.clear();
    }

    std::filesystem::path target_;
    std::filesystem::path temporary_; ///< the file being written; empty once there is none
    Handle file_;
    std::error_code error_; ///< the first failure, which every later call repeats
};

} // namespace

namespace system {

std::unique_ptr<platform::Reader> readFile(const platform::FileName& name, std::error_code& error) {
    Handle file = openRegular(wide(name), GENERIC_READ, error);
    return error ? nullptr : std::make_unique<FileReader>(std::move(file));
}

std::unique_ptr<platform::Writer> replaceFile(
    const platform::FileName& name, std::error_code& error) {
    auto writer = std::make_unique<SafeWriter>();
    error = writer->prepare(wide(name));
    if (error)
        return nullptr;
    return writer;
}

} // namespace system

} // namespace desktop
