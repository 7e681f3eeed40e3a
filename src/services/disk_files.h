// The real disk, as each edition has it.
#pragma once

#include "services/files.h"

namespace tamlo {

/// Accesses regular files and folders only (or links to them): a pipe or a device in a file's place
/// can neither block the game nor be overwritten.
class DiskFiles : public Files {
  public:
    std::string FindFile(const std::string& path) override;
    std::string FindFolder(const std::string& path) override;
    std::vector<std::string> List(const std::string& folder, std::string_view pattern) override;
    std::optional<std::uint64_t> Length(const std::string& path) override;
    ReadResult Read(const std::string& path) override;
    bool Replace(const std::string& path, std::string_view bytes) override;
    bool Append(const std::string& path, std::string_view bytes) override;
    bool Delete(const std::string& path) override;
    bool Rename(const std::string& from, const std::string& to) override;
    bool MakeFolder(const std::string& path) override;
    std::string CurrentDirectory() override;
};

}  // namespace tamlo
