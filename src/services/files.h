// The file system as the game needs it: names without regard to case, whole files, safe writes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamlo {

struct ReadResult {
    enum class Outcome { ok, missing, failed };
    Outcome outcome = Outcome::missing;
    std::string bytes;  ///< whole content when ok, else empty
};

/// "/" stands between the names of a path, and no other character does where a name can hold it: a
/// name from List, put behind a folder and "/", is that file and no other. Paths are absolute or
/// relative to CurrentDirectory. In every operation the last name of a path is looked up as it
/// stands, else without regard to (ASCII) case. No operation throws; a failure is its result.
class Files {
  public:
    virtual ~Files() = default;

    /// The path with its last name as it stands on disk; empty if there is no such regular file.
    virtual std::string FindFile(const std::string& path) = 0;
    /// The same for a folder.
    virtual std::string FindFolder(const std::string& path) = 0;
    /// Names of the files in `folder` that match `pattern` ('*' stands for any characters, case
    /// is ignored), in ascending order without regard to case. Empty when there is no folder.
    virtual std::vector<std::string> List(const std::string& folder, std::string_view pattern) = 0;
    /// Length in bytes; nothing if there is no such file.
    virtual std::optional<std::uint64_t> Length(const std::string& path) = 0;
    /// The whole file. More than 64 MiB counts as failed.
    virtual ReadResult Read(const std::string& path) = 0;
    /// Creates or replaces the file, whole or not at all, whatever happens to the machine.
    virtual bool Replace(const std::string& path, std::string_view bytes) = 0;
    /// Appends the bytes in one write, creating the file if it is missing. They begin a line of
    /// their own; zeros at the end, which a power cut leaves, are taken off.
    virtual bool Append(const std::string& path, std::string_view bytes) = 0;
    virtual bool Delete(const std::string& path) = 0;
    /// Renames a file; fails, and changes nothing, when `to` exists in any case.
    virtual bool Rename(const std::string& from, const std::string& to) = 0;
    /// Makes one folder; its parent must exist.
    virtual bool MakeFolder(const std::string& path) = 0;
    /// Absolute path of the process's current directory.
    virtual std::string CurrentDirectory() = 0;
};

}  // namespace tamlo
