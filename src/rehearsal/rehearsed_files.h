// Real files, seen from the rehearsal's current directory. Each call is reported to the stage.
#pragma once

#include <string>

#include "rehearsal/stage.h"
#include "services/forwarding_files.h"

namespace tamlo {

class RehearsedFiles final : public ForwardingFiles {
  public:
    /// `disk` does the work. `current_directory` is an absolute path.
    RehearsedFiles(Stage& stage, Files& disk, std::string current_directory);

    std::string FindFile(const std::string& path) override;
    std::string FindFolder(const std::string& path) override;
    std::string CurrentDirectory() override;

  private:
    void Asked() override { stage_.Asked(); }
    std::string PathFor(const std::string& path) override;
    std::string Shown(const std::string& path, std::string found) const;

    Stage& stage_;
    std::string current_directory_;
};

}  // namespace tamlo
