// Writing files so that neither a crash, a full disk nor a power cut can spoil them.
#pragma once

#include <string>
#include <string_view>

namespace tamlo {

/// Creates the regular file `path` or replaces its content: the bytes are written beside it,
/// flushed to the disk and renamed over it, so that at any moment either the old file or the new
/// one stands. A symbolic link stays and its target is replaced; mode and owner stay as they are.
/// False, with the old file untouched, if anything fails or the old file may not be written.
bool ReplaceFile(const std::string& path, std::string_view bytes);

/// Appends the bytes to the regular file `path` in one write, creating it if it is missing. They
/// are not flushed to the disk, which would take time; so a power cut can leave zeros in their
/// place, which are taken off first, or half a line, which is ended. On failure the file is as long
/// as before, without such zeros.
bool AppendToFile(const std::string& path, std::string_view bytes);

/// Flushes a folder's entries to the disk. False on an error of the disk; file systems that
/// cannot do it count as done.
bool SyncFolder(const std::string& folder);

/// Whether a name is that of a file that ReplaceFile is writing, or left when it was killed.
bool IsUnfinishedName(std::string_view name);

/// The folder part of a path, "." if it has none.
std::string FolderOf(const std::string& path);

}  // namespace tamlo
