// Writing beside and renaming over, and appending whole.
#include "linux/system/safe_write.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <optional>

#include "linux/system/descriptor.h"

namespace tamlo {
namespace {

// Begins with a dot and matches no name of a file of the game's, so nothing ever lists it.
constexpr std::string_view unfinished_prefix = ".tamlo-unfinished-";

// As many links as the system itself would follow.
constexpr int most_links = 40;

struct OpenedFile {
    Descriptor file;
    std::string path;
};

/// The path that the chain of symbolic links at `path` leads to; nothing if it goes in a circle.
std::optional<std::string> FollowLinks(std::string path) {
    for (int links = 0; links < most_links; ++links) {
        char target[4096];
        const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
        if (length < 0) return path;
        if (length == 0 || length == static_cast<ssize_t>(sizeof target)) return std::nullopt;
        const std::string next(target, static_cast<std::size_t>(length));
        path = next.front() == '/' ? next : FolderOf(path).append("/").append(next);
    }
    return std::nullopt;
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Removes what writers that were killed have left. A living writer holds a lock on its file.
void RemoveLeftovers(const std::string& folder) {
    DIR* const listing = ::opendir(folder.c_str());
    if (listing == nullptr) return;
    while (const dirent* const entry = ::readdir(listing)) {
        if (!IsUnfinishedName(entry->d_name)) continue;
        const int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        const Descriptor file(::openat(::dirfd(listing), entry->d_name, flags));
        if (file && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0) {
            ::unlinkat(::dirfd(listing), entry->d_name, 0);
        }
    }
    ::closedir(listing);
}

OpenedFile CreateUnfinished(const std::string& folder) {
    static std::atomic<unsigned> count = 0;
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        std::string path = folder + '/' + std::string(unfinished_prefix) +
                           std::to_string(::getpid()) + '-' + std::to_string(++count);
        Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (file) {
            ::flock(file.Number(), LOCK_EX | LOCK_NB);
            return {std::move(file), std::move(path)};
        }
        if (errno != EEXIST) break;
    }
    return {};
}

/// Gives a new file the owner and the mode of the one that it replaces. The owner is kept where
/// the system lets us: a game started once as root must not lock its player out.
bool TakeOver(int file, const struct stat& old) {
    if (::fchown(file, old.st_uid, old.st_gid) != 0 && errno != EPERM) return false;
    return ::fchmod(file, old.st_mode & 0777U) == 0;
}

bool WriteUnfinished(OpenedFile& unfinished, std::string_view bytes, const struct stat* old) {
    const int file = unfinished.file.Number();
    return (old == nullptr || TakeOver(file, *old)) && WriteAll(file, bytes) && ::fsync(file) == 0;
}

/// Where the bytes of a file end that are not zeros behind all others; -1 if it can't be read.
off_t EndOfText(int file, off_t length) {
    char block[4096];
    while (length > 0) {
        const off_t size = std::min<off_t>(length, sizeof block);
        if (::pread(file, block, static_cast<std::size_t>(size), length - size) != size) return -1;
        for (off_t i = size; i > 0; --i, --length) {
            if (block[i - 1] != '\0') return length;
        }
    }
    return 0;
}

/// Takes the zeros off that a power cut has left at the end: the file's new length had come to the
/// disk, its new bytes had not. Sets `length`; whether the last line has lost its end.
bool MendEnd(int file, off_t& length) {
    const off_t end = EndOfText(file, length);
    if (end < 0 || (end < length && ::ftruncate(file, end) != 0)) return false;
    length = end;
    char last = '\n';
    return end > 0 && ::pread(file, &last, 1, end - 1) == 1 && last != '\n';
}

}  // namespace

bool IsUnfinishedName(std::string_view name) {
    return name.starts_with(unfinished_prefix);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool SyncFolder(const std::string& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened) return true;  // A folder that may be written but not read.
    return ::fsync(opened.Number()) == 0 || errno == EINVAL || errno == EROFS;
}

bool ReplaceFile(const std::string& path, std::string_view bytes) {
    const std::optional<std::string> target = FollowLinks(path);
    if (!target) return false;
    struct stat old = {};
    const bool exists = ::lstat(target->c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return false;
    // Renaming needs no right to write the file itself; a player who took it away means it.
    if (exists && (!S_ISREG(old.st_mode) || ::access(target->c_str(), W_OK) != 0)) return false;

    const std::string folder = FolderOf(*target);
    RemoveLeftovers(folder);
    OpenedFile unfinished = CreateUnfinished(folder);
    if (!unfinished.file) return false;
    // The file stays open, and so locked, until it has its name.
    if (!WriteUnfinished(unfinished, bytes, exists ? &old : nullptr) ||
        ::rename(unfinished.path.c_str(), target->c_str()) != 0) {
        ::unlink(unfinished.path.c_str());
        return false;
    }
    return SyncFolder(folder);
}

bool AppendToFile(const std::string& path, std::string_view bytes) {
    struct stat before = {};
    const bool exists = ::stat(path.c_str(), &before) == 0;
    if (exists && !S_ISREG(before.st_mode)) return false;
    const int flags = O_RDWR | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    Descriptor file(::open(path.c_str(), flags, 0666));
    if (!file || ::fstat(file.Number(), &before) != 0 || !S_ISREG(before.st_mode)) return false;

    std::string text(MendEnd(file.Number(), before.st_size) ? "\r\n" : "");
    text += bytes;
    ssize_t written = 0;
    do {
        written = ::write(file.Number(), text.data(), text.size());
    } while (written < 0 && errno == EINTR);
    if (written == static_cast<ssize_t>(text.size())) return file.Close();

    // Half a line is worse than none. Should even this fail, nothing more can be done.
    if (::ftruncate(file.Number(), before.st_size) == 0 && !exists) ::unlink(path.c_str());
    return false;
}

}  // namespace tamlo
