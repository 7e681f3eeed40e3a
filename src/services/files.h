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

/// "/" separates the names of a path, and no other character does if a name can contain it: a
/// folder, "/" and a name from List give the path of exactly that file. Paths are absolute or
/// relative to CurrentDirectory. In every operation the last name of a path is looked up exactly,
/// and if there is no such name, without regard to (ASCII) case. No operation throws; failures are
/// results.
class Files {
  public:
    virtual ~Files() = default;

    /// The path with its last name as written on disk; empty if there is no such regular file.
    virtual std::string FindFile(const std::string& path) = 0;
    /// The same for a folder.
    virtual std::string FindFolder(const std::string& path) = 0;
    /// Names of the files in `folder` that match `pattern` ('*' stands for any characters, case
    /// is ignored), in ascending order without regard to case. Empty if there is no such folder.
    virtual std::vector<std::string> List(const std::string& folder, std::string_view pattern) = 0;
    /// Length in bytes; nothing if there is no such file.
    virtual std::optional<std::uint64_t> Length(const std::string& path) = 0;
    /// The whole file. More than 64 MiB counts as failed.
    virtual ReadResult Read(const std::string& path) = 0;
    /// Creates or replaces the file, completely or not at all, even if the machine fails.
    virtual bool Replace(const std::string& path, std::string_view bytes) = 0;
    /// Appends the bytes in one write, creating the file if it is missing. They begin a new line.
    /// Zeros at the file's end, as a power cut leaves them, are removed.
    virtual bool Append(const std::string& path, std::string_view bytes) = 0;
    virtual bool Delete(const std::string& path) = 0;
    /// Renames a file. Fails, without any change, if `to` exists in any case.
    virtual bool Rename(const std::string& from, const std::string& to) = 0;
    /// Makes one folder; its parent must exist.
    virtual bool MakeFolder(const std::string& path) = 0;
    /// Absolute path of the process's current directory.
    virtual std::string CurrentDirectory() = 0;
};

}  // namespace tamlo
