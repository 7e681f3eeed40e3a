// The real disk: finding names without regard to case, and the operations on what was found.
#include "services/disk_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <new>

#include "linux/system/descriptor.h"
#include "linux/system/safe_write.h"
#include "text/names.h"

namespace tamlo {
namespace {

constexpr std::size_t longest_file = 64 * 1024 * 1024;

enum class Kind { file, folder, any };

/// With no '/' at the end; empty for a path that no file can have.
std::string Normalised(std::string path) {
    if (path.find('\0') != std::string::npos) return "";
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

bool IsA(Kind kind, const std::string& path) {
    struct stat found = {};
    // A link that leads nowhere still takes its name.
    if (kind == Kind::any) return ::lstat(path.c_str(), &found) == 0;
    if (::stat(path.c_str(), &found) != 0) return false;
    return kind == Kind::file ? S_ISREG(found.st_mode) : S_ISDIR(found.st_mode);
}

/// The names in a folder, in no order; none if it cannot be read.
std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    DIR* const listing = ::opendir(folder.c_str());
    if (listing == nullptr) return names;
    while (const dirent* const entry = ::readdir(listing)) names.emplace_back(entry->d_name);
    ::closedir(listing);
    return names;
}

/// `path` with its last name as something of that kind bears it; empty if there is nothing. Of
/// several names that differ only in case, the first in the order of their bytes.
std::string Find(const std::string& path, Kind kind) {
    std::string wanted = Normalised(path);
    if (wanted.empty() || IsA(kind, wanted)) return wanted;
    const std::size_t slash = wanted.rfind('/');
    const std::string before = slash == std::string::npos ? "" : wanted.substr(0, slash + 1);
    const std::string name = wanted.substr(before.size());
    std::string best;
    for (const std::string& candidate : NamesIn(before.empty() ? "." : before)) {
        if (CompareNames(candidate, name) == 0 && (best.empty() || candidate < best) &&
            IsA(kind, before + candidate)) {
            best = candidate;
        }
    }
    return best.empty() ? "" : before + best;
}

/// What an operation on the file `path` acts on: the file found, else whatever else bears the
/// name, else the name as it stands.
std::string TargetOf(const std::string& path) {
    for (const Kind kind : {Kind::file, Kind::any}) {
        if (std::string found = Find(path, kind); !found.empty()) return found;
    }
    return Normalised(path);
}

bool ReadAll(int file, std::string& bytes) {
    // Its length, which may change until it has been read, spares the copies of a growing text.
    struct stat about {};
    if (::fstat(file, &about) == 0) {
        bytes.reserve(std::min(static_cast<std::size_t>(about.st_size), longest_file));
    }
    char block[65536];
    while (bytes.size() <= longest_file) {
        const ssize_t count = ::read(file, block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        if (count == 0) return true;
        bytes.append(block, static_cast<std::size_t>(count));
    }
    return false;
}

/// Renames without ever replacing `to`, also on file systems that cannot promise it themselves.
bool RenameToNew(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    if (errno != EINVAL && errno != ENOSYS) return false;
    if (::link(from.c_str(), to.c_str()) == 0) return ::unlink(from.c_str()) == 0;
    // Without hard links either, the caller's look for `to` has to do.
    return (errno == EPERM || errno == ENOTSUP) && ::rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace

std::string DiskFiles::FindFile(const std::string& path) {
    return Find(path, Kind::file);
}

std::string DiskFiles::FindFolder(const std::string& path) {
    return Find(path, Kind::folder);
}

std::vector<std::string> DiskFiles::List(const std::string& folder, std::string_view pattern) {
    const std::string found = Find(folder, Kind::folder);
    if (found.empty()) return {};
    std::vector<std::string> names = NamesIn(found);
    std::erase_if(names, [&](const std::string& name) {
        return IsUnfinishedName(name) || !MatchesPattern(name, pattern) ||
               !IsA(Kind::file, found + '/' + name);
    });
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const int order = CompareNames(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

std::optional<std::uint64_t> DiskFiles::Length(const std::string& path) {
    struct stat found = {};
    const std::string file = Find(path, Kind::file);
    if (file.empty() || ::stat(file.c_str(), &found) != 0) return std::nullopt;
    return static_cast<std::uint64_t>(found.st_size);
}

ReadResult DiskFiles::Read(const std::string& path) {
    using Outcome = ReadResult::Outcome;
    const std::string target = TargetOf(path);
    struct stat found = {};
    if (target.empty() || ::stat(target.c_str(), &found) != 0) {
        const bool missing = target.empty() || errno == ENOENT || errno == ENOTDIR;
        return {missing ? Outcome::missing : Outcome::failed, ""};
    }
    // Opening a device can have effects of its own, so it is not even tried.
    if (!S_ISREG(found.st_mode)) return {Outcome::failed, ""};
    const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const Descriptor file(::open(target.c_str(), flags));
    if (!file) return {errno == ENOENT ? Outcome::missing : Outcome::failed, ""};
    try {
        std::string bytes;
        if (ReadAll(file.Number(), bytes)) return {Outcome::ok, std::move(bytes)};
    } catch (const std::bad_alloc&) {
        // Too long for this machine.
    }
    return {Outcome::failed, ""};
}

bool DiskFiles::Replace(const std::string& path, std::string_view bytes) {
    const std::string target = TargetOf(path);
    return !target.empty() && ReplaceFile(target, bytes);
}

bool DiskFiles::Append(const std::string& path, std::string_view bytes) {
    const std::string target = TargetOf(path);
    return !target.empty() && AppendToFile(target, bytes);
}

bool DiskFiles::Delete(const std::string& path) {
    const std::string file = Find(path, Kind::file);
    if (file.empty() || ::unlink(file.c_str()) != 0) return false;
    SyncFolder(FolderOf(file));
    return true;
}

bool DiskFiles::Rename(const std::string& from, const std::string& to) {
    const std::string file = Find(from, Kind::file);
    const std::string target = Normalised(to);
    if (file.empty() || target.empty() || !Find(to, Kind::any).empty()) return false;
    if (!RenameToNew(file, target)) return false;
    SyncFolder(FolderOf(target));
    return true;
}

bool DiskFiles::MakeFolder(const std::string& path) {
    const std::string folder = Normalised(path);
    if (folder.empty() || !Find(folder, Kind::any).empty()) return false;
    if (::mkdir(folder.c_str(), 0777) != 0) return false;
    SyncFolder(FolderOf(folder));
    return true;
}

std::string DiskFiles::CurrentDirectory() {
    std::error_code failure;
    const std::filesystem::path current = std::filesystem::current_path(failure);
    return failure ? "" : current.string();
}

}  // namespace tamlo
