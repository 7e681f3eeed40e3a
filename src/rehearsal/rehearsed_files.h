// Real files, seen from the rehearsed current directory; each call counts as asking.
#pragma once

#include <string>

#include "rehearsal/stage.h"
#include "services/files.h"

namespace tamlo {

class RehearsedFiles final : public Files {
  public:
    /// `disk` does the work. `current_directory` is an absolute path.
    RehearsedFiles(Stage& stage, Files& disk, std::string current_directory);

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

  private:
    std::string From(const std::string& path);

    Stage& stage_;
    Files& disk_;
    std::string current_directory_;
};

}  // namespace tamlo
