// SPDX-FileCopyrightText: 2026 the Quarrow team
// SPDX-License-Identifier: MIT
#include "platform/settings/AtomicFile.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <system_error>

#if defined(_WIN32)
#include <fstream>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>
#endif

namespace platform
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view kRandomLetters = "XXXXXX"; // mkstemp() replaces them

#if defined(_WIN32)

bool WriteNewFile(fs::path const& target, std::string_view text, fs::path& written)
{
    written = target;
    written += ".new";
    std::ofstream stream(written, std::ios::binary | std::ios::trunc);
    stream << text << std::flush;
    return stream.good();
}

void SyncFolder(fs::path const&)
{
}

#else

// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    ~Descriptor()
    {
        if (m_descriptor >= 0)
        {
            ::close(m_descriptor);
        }
    }
    Descriptor(Descriptor const&) = delete;
    Descriptor& operator=(Descriptor const&) = delete;
    int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

bool WriteAll(int descriptor, std::string_view text)
{
    while (!text.empty())
    {
        ssize_t const count = ::write(descriptor, text.data(), text.size());
        if (count < 0 && errno != EINTR)
        {
            return false;
        }
        text.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    return true;
}

bool WriteNewFile(fs::path const& target, std::string_view text, fs::path& written)
{
    std::string name = target.string() + "." + std::string(kRandomLetters);
    Descriptor const descriptor(::mkstemp(name.data()));
    if (descriptor.get() < 0)
    {
        return false;
    }
    written = name;
    struct stat old = {};
    if (::stat(target.c_str(), &old) == 0)
    {
        ::fchmod(descriptor.get(), old.st_mode & 07777U);
    }
    return WriteAll(descriptor.get(), text) && ::fsync(descriptor.get()) == 0;
}

void SyncFolder(fs::path const& folder)
{
    Descriptor const descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.get() >= 0)
    {
        ::fsync(descriptor.get());
    }
}

#endif

std::string LastError()
{
    return std::strerror(errno);
}

// Follows symbolic links, also where the last of them names nothing.
fs::path WhatLinkNames(fs::path file)
{
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(file, error); ++i)
    {
        file = file.parent_path() / fs::read_symlink(file, error);
    }
    return file;
}

// Whether a file beside the target has a name such as WriteNewFile() gives.
bool IsNewFileOf(fs::path const& target, fs::path const& other)
{
    std::string const prefix = target.filename().string() + ".";
    std::string const name = other.filename().string();
    return name.size() == prefix.size() + kRandomLetters.size() && name.starts_with(prefix) &&
           std::all_of(name.begin() + static_cast<std::ptrdiff_t>(prefix.size()), name.end(),
                       [](unsigned char c) { return std::isalnum(c) != 0; });
}

// What lies there for a minute has no writer any more.
void RemoveLeftovers(fs::path const& target)
{
    constexpr std::chrono::minutes kLongestSave(1);
    auto const now = fs::file_time_type::clock::now();
    std::error_code error;
    for (fs::directory_iterator file(target.parent_path(), error); !error && file != fs::directory_iterator();
         file.increment(error))
    {
        std::error_code ignored;
        if (IsNewFileOf(target, file->path()) && now - file->last_write_time(ignored) > kLongestSave)
        {
            fs::remove(file->path(), ignored);
        }
    }
}

} // namespace

std::string ReplaceFile(fs::path const& file, std::string_view text)
{
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    if (error)
    {
        return error.message();
    }
    fs::path const target = WhatLinkNames(file);

    fs::path written;
    std::string problem;
    if (!WriteNewFile(target, text, written))
    {
        problem = LastError();
    }
    else if (fs::rename(written, target, error); error)
    {
        problem = error.message();
    }
    if (problem.empty())
    {
        SyncFolder(target.parent_path());
        RemoveLeftovers(target);
    }
    else if (!written.empty())
    {
        fs::remove(written, error);
    }
    return problem;
}

#if defined(_WIN32)

FolderLock::FolderLock(fs::path const&)
{
}

FolderLock::~FolderLock() = default;

#else

FolderLock::FolderLock(fs::path const& folder)
{
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    m_descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // Tries come so close together that one hits the gap between two saves of a game that saves without
    // pause.
    constexpr std::chrono::microseconds kPause(100);
    constexpr int kTries = 8000;
    for (int i = 0; m_descriptor >= 0 && i < kTries && ::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0; ++i)
    {
        std::this_thread::sleep_for(kPause);
    }
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
    {
        ::close(m_descriptor);
    }
}

#endif

} // namespace platform
